#include "standalone/host/delivered_layer.h"

#include "standalone/host/services/rectangle.h"

namespace quiltor::standalone {

DeliveredLayer::DeliveredLayer(const World& source, WorldFormat format, const HostOptions& options,
                               const std::optional<PF_LRect>& area)
    : source_(source), format_(format), rows_(options.inputRows), area_(area) {
  const bool whole = !area || contains(*area, source.bounds());
  if (options.strict || !whole || source.format() != format) copy_ = makeCopy();
  record_ = copy_ ? copy_->record() : source.record();
  if (!area) record_.origin_x = record_.origin_y = 0;
  record_.world_flags &= ~PF_WorldFlag_WRITEABLE;
}

World DeliveredLayer::makeCopy() const {
  return area_ ? source_.cropped(*area_).converted(format_, rows_) : source_.converted(format_, rows_);
}

void DeliveredLayer::check(Findings& findings) const {
  if (!copy_) return;
  if (const auto damage = copy_->damage()) {
    findings.record(FindingKind::WorldOverrun, "an input world was written outside its pixels: " + *damage);
  }
  if (copy_->packed() != makeCopy().packed()) {
    findings.record(FindingKind::InputWorldWritten, "the pixels of an input world were changed");
  }
}

}  // namespace quiltor::standalone
