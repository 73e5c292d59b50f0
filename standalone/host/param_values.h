#pragma once

#include <functional>
#include <vector>

#include "standalone/host/parameter.h"
#include "standalone/host/services/host_options.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

struct LayerSize {
  int width = 0, height = 0;
};

// The values of one instance's parameters, the registered defaults until set. A wrong index or kind throws
// std::invalid_argument.
class ParamValues {
 public:
  using LayerSource = std::function<const World*(A_long time, A_u_long timeScale)>;
  using Adjust = std::function<void(PF_ParamDef&, A_long time, A_u_long timeScale)>;

  explicit ParamValues(const std::vector<Parameter>& parameters);

  void setNumber(int index, double value);
  void setChoice(int index, int item);
  void setChecked(int index, bool on);
  void setColor(int index, const PF_Pixel& color);
  void setPointPercent(int index, double x, double y);
  void setPointPixels(int index, double x, double y);
  void setPath(int index, PF_PathID id);
  void setLayer(int index, LayerSource source);
  void adjust(int index, Adjust hook);

  [[nodiscard]] std::size_t size() const { return values_.size(); }
  [[nodiscard]] bool isLayer(std::size_t index) const;
  // The definition with the value. Points are pixels of a buffer of the given size; layers have no pixels.
  [[nodiscard]] PF_ParamDef at(std::size_t index, const LayerSize& buffer, const HostOptions& options) const;
  // For the caller once it has filled in a layer's pixels.
  void applyHook(std::size_t index, PF_ParamDef& definition, A_long time, A_u_long timeScale) const;
  // The layer that a layer parameter stands for; `self` is the effect's own. Null for no layer.
  [[nodiscard]] const World* layerAt(std::size_t index, A_long time, A_u_long timeScale, const World* self) const;

 private:
  struct Value {
    PF_ParamDef definition{};
    bool pointInPixels = false;
    double x = 0, y = 0;  // points: percent of the layer, or full-resolution pixels
    bool standsForSelf = false;
    LayerSource layer;
    Adjust hook;
  };

  Value& valueOf(int index, const char* expected, std::initializer_list<PF_ParamType> types);

  std::vector<Value> values_;
};

}  // namespace quiltor::standalone
