#include "standalone/cli/instance_values.h"

#include <string>
#include <variant>

#include "base/utf8_path.h"
#include "standalone/cli/flat_sequence.h"
#include "standalone/cli/session.h"

namespace quiltor::standalone {
namespace {

// The text slot of the flat data that carries the pattern.
constexpr int kPatternSlot = 0;

struct Apply {
  Instance& instance;
  int index;
  void operator()(double number) const { instance.setNumber(index, number); }
  void operator()(bool on) const { instance.setChecked(index, on); }
  void operator()(ChosenItem chosen) const { instance.setChoice(index, chosen.item); }
  void operator()(ChosenMask mask) const { instance.setPath(index, static_cast<PF_PathID>(mask.id)); }
  void operator()(const PF_Pixel& color) const { instance.setColor(index, color); }
  void operator()(const PointValue& point) const {
    if (point.percent) {
      instance.setPointPercent(index, point.x, point.y);
    } else {
      instance.setPointPixels(index, point.x, point.y);
    }
  }
};

}  // namespace

void applyValue(Instance& instance, int index, const ParameterValue& value) {
  std::visit(Apply{instance, index}, value);
}

// The pattern's path takes the place of the saved one.
std::vector<unsigned char> savedWithPattern(Effect& effect, const std::filesystem::path& pattern) {
  const std::string selection = patternSelection(genericUtf8FromPath(std::filesystem::absolute(pattern)));
  Instance saved(effect);
  requireSuccess(saved.setUp(), "setting up an instance");
  requireSuccess(saved.flatten(), "saving an instance");
  const std::vector<unsigned char> flat = withTextSlot(saved.sequenceBytes(), kPatternSlot, selection);
  requireSuccess(saved.shutDown(), "closing an instance");
  return flat;
}

}  // namespace quiltor::standalone
