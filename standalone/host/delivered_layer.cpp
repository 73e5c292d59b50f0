#include "standalone/host/delivered_layer.h"

namespace quiltor::standalone {

DeliveredLayer::DeliveredLayer(const World& source, WorldFormat format, RowLayout rows,
                               const std::optional<PF_LRect>& area)
    : source_(source), format_(format), rows_(rows), area_(area), copy_(makeCopy()) {
  copy_.record().world_flags &= ~PF_WorldFlag_WRITEABLE;
}

World DeliveredLayer::makeCopy() const {
  if (area_) return source_.cropped(*area_).converted(format_, rows_);
  World whole = source_.converted(format_, rows_);
  whole.setOrigin(0, 0);
  return whole;
}

void DeliveredLayer::check(Findings& findings) const {
  if (const auto damage = copy_.damage()) {
    findings.record(FindingKind::WorldOverrun, "an input world was written outside its pixels: " + *damage);
  }
  if (copy_.packed() != makeCopy().packed()) {
    findings.record(FindingKind::InputWorldWritten, "the pixels of an input world were changed");
  }
}

}  // namespace quiltor::standalone
