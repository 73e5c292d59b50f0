#pragma once

#include <optional>

#include "host/host_error.h"
#include "host/scoped_suite.h"
#include "hostapi/custom_ui.h"

namespace quiltor {

// The host's four drawing suites, acquired and released together. Main thread only.
class DrawbotSuites {
 public:
  // Fills the target. Gives 516 and tells the user when the host lacks one of them, or when there is no target.
  static HostErr acquire(const SPBasicSuite* basic, PF_OutData& out, std::optional<DrawbotSuites>* target);

  DrawbotSuites(const SPBasicSuite* basic, PF_OutData& out);

  const ScopedSuite<DRAWBOT_DrawbotSuite1> draw;
  const ScopedSuite<DRAWBOT_SupplierSuite1> supplier;
  const ScopedSuite<DRAWBOT_SurfaceSuite1> surface;
  const ScopedSuite<DRAWBOT_PathSuite1> path;
};

}  // namespace quiltor
