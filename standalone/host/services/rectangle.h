#pragma once

#include <algorithm>

#include "hostapi/basic_types.h"

namespace quiltor::standalone {

[[nodiscard]] inline bool isEmpty(const PF_LRect& r) { return r.left >= r.right || r.top >= r.bottom; }

// All zero when they have nothing in common.
[[nodiscard]] inline PF_LRect intersection(const PF_LRect& a, const PF_LRect& b) {
  const PF_LRect common{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                        std::min(a.bottom, b.bottom)};
  return isEmpty(common) ? PF_LRect{} : common;
}

[[nodiscard]] inline bool contains(const PF_LRect& outer, const PF_LRect& inner) {
  return isEmpty(inner) || (inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
                            inner.bottom <= outer.bottom);
}

}  // namespace quiltor::standalone
