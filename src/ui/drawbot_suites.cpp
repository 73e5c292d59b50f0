#include "ui/drawbot_suites.h"

#include "host/user_message.h"

namespace quiltor {

DrawbotSuites::DrawbotSuites(const SPBasicSuite* basic, PF_OutData& out)
    : draw(basic, kDRAWBOTDrawSuite, kDRAWBOTDrawSuiteVersion1, &out),
      supplier(basic, kDRAWBOTSupplierSuite, kDRAWBOTSupplierSuiteVersion1, &out),
      surface(basic, kDRAWBOTSurfaceSuite, kDRAWBOTSurfaceSuiteVersion1, &out),
      path(basic, kDRAWBOTPathSuite, kDRAWBOTPathSuiteVersion1, &out) {}

HostErr DrawbotSuites::acquire(const SPBasicSuite* basic, PF_OutData& out, std::optional<DrawbotSuites>* target) {
  if (!target) {
    tellUser(out, "NULL suite pointer passed to AEFX_AcquireDrawbotSuites");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  target->emplace(basic, out);
  const DrawbotSuites& suites = **target;
  const bool whole = suites.draw && suites.supplier && suites.surface && suites.path;
  return whole ? PF_Err_NONE : PF_Err_BAD_CALLBACK_PARAM;
}

}  // namespace quiltor
