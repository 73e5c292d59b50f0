#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

std::optional<WorldFormat> formatOfCode(PF_PixelFormat code) {
  for (const WorldFormat format : {WorldFormat::Argb8, WorldFormat::Argb16, WorldFormat::ArgbFloat}) {
    if (pixelFormatCode(format) == code) return format;
  }
  return std::nullopt;
}

PF_Err newWorld(PF_ProgPtr effect, A_long width, A_long height, PF_Boolean clear, PF_PixelFormat code,
                PF_EffectWorld* world) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::NewWorld, "PF_NewWorld", PF_Err_OUT_OF_MEMORY);
  if (refused) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  const auto format = formatOfCode(code);
  if (width < 1 || height < 1 || !format || !world) {
    host.findings.record(FindingKind::BadArgument,
                         "PF_NewWorld was called with a size below 1 x 1, a format that is "
                         "none of argb, ae16 and ae32, or no record");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  return host.worlds.make(*format, width, height, clear != 0, *world) ? PF_Err_NONE : PF_Err_OUT_OF_MEMORY;
}

PF_Err disposeWorld(PF_ProgPtr effect, PF_EffectWorld* world) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::DisposeWorld, "PF_DisposeWorld");
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!world) {
    host.findings.record(FindingKind::BadArgument, "PF_DisposeWorld was called without a record");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  host.worlds.dispose(*world);
  return refused;
}

PF_Err getPixelFormat(const PF_EffectWorld* world, PF_PixelFormat* code) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::GetPixelFormat, "PF_GetPixelFormat")) return refused;
  const auto format = world ? formatOf(*world) : std::nullopt;
  if (!format || !code) {
    host.findings.record(FindingKind::BadArgument, "PF_GetPixelFormat was asked about what is no world of the host");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  *code = pixelFormatCode(*format);
  return PF_Err_NONE;
}

PF_WorldSuite2 makeSuite() {
  auto suite = tableOfUnimplementedSlots<PF_WorldSuite2>();
  suite.PF_NewWorld = &newWorld;
  suite.PF_DisposeWorld = &disposeWorld;
  suite.PF_GetPixelFormat = &getPixelFormat;
  return suite;
}

}  // namespace

const PF_WorldSuite2& worldSuite() {
  static const PF_WorldSuite2 suite = makeSuite();
  return suite;
}

}  // namespace quiltor::standalone
