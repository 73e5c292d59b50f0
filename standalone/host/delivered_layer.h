#pragma once

#include <optional>

#include "standalone/host/services/findings.h"
#include "standalone/host/services/host_options.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// A layer's pixels as an effect gets them: a copy with guards around it. The source must live as long.
class DeliveredLayer {
 public:
  // Without an area the whole layer, its origin at 0, 0 as in plain rendering; with one, the layer's part inside it. A
  // host that is not strict delivers the source itself when it has that format and is asked for whole.
  DeliveredLayer(const World& source, WorldFormat format, const HostOptions& options,
                 const std::optional<PF_LRect>& area);

  [[nodiscard]] PF_EffectWorld& record() { return record_; }
  // Records writes to the pixels and around them.
  void check(Findings& findings) const;

 private:
  [[nodiscard]] World makeCopy() const;

  const World& source_;
  WorldFormat format_;
  RowLayout rows_;
  std::optional<PF_LRect> area_;
  std::optional<World> copy_;
  PF_EffectWorld record_;
};

}  // namespace quiltor::standalone
