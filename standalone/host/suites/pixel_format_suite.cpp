#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

PF_Err addSupportedPixelFormat(PF_ProgPtr effect, PrPixelFormat format) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::AddPixelFormat, "AddSupportedPixelFormat")) return refused;
  const CallScope* call = host.callOf(effect);
  if (!call) return PF_Err_BAD_CALLBACK_PARAM;
  if (call->selector() != "PF_Cmd_GLOBAL_SETUP") {
    host.findings.record(FindingKind::WrongSelector, "pixel formats are declared at global setup only");
  }
  host.declaredPixelFormats.push_back(format);
  return PF_Err_NONE;
}

PF_Err getPixelFormat(PF_EffectWorld* world, PrPixelFormat* code) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::GetPixelFormat, "GetPixelFormat")) return refused;
  const auto format = world ? formatOf(*world) : std::nullopt;
  if (!format || !code) {
    host.findings.record(FindingKind::BadArgument, "GetPixelFormat was asked about what is no world of the host");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  *code = videoEditorFormatCode(*format);
  if (host.options.linearLight && *code == PrPixelFormat_BGRA_4444_32f) *code = PrPixelFormat_BGRA_4444_32f_Linear;
  return PF_Err_NONE;
}

PF_PixelFormatSuite makeSuite() {
  auto suite = tableOfUnimplementedSlots<PF_PixelFormatSuite>();
  suite.AddSupportedPixelFormat = &addSupportedPixelFormat;
  suite.GetPixelFormat = &getPixelFormat;
  return suite;
}

}  // namespace

const PF_PixelFormatSuite& pixelFormatSuite() {
  static const PF_PixelFormatSuite suite = makeSuite();
  return suite;
}

}  // namespace quiltor::standalone
