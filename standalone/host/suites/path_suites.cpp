#include <cstddef>
#include <optional>
#include <string>

#include "standalone/host/masks/coverage.h"
#include "standalone/host/services/host_state.h"
#include "standalone/host/services/layer_masks.h"
#include "standalone/host/services/resolution.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

PF_Err numPaths(PF_ProgPtr effect, A_long* count) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::Path, "PF_NumPaths")) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!count) return badArgument("PF_NumPaths was called without a destination");
  *count = static_cast<A_long>(host.options.masks.size());
  return PF_Err_NONE;
}

PF_Err pathInfo(PF_ProgPtr effect, A_long index, PF_PathID* id) {
  HostState& host = hostState();
  const std::string what = "PF_PathInfo " + std::to_string(index);
  if (const PF_Err refused = host.faults.refusal(HostCall::Path, what)) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!id) return badArgument("PF_PathInfo was called without a destination");
  const std::vector<Mask>& masks = host.options.masks;
  if (index < 0 || static_cast<std::size_t>(index) >= masks.size()) {
    return badArgument("path " + std::to_string(index) + " was asked for, of " + std::to_string(masks.size()));
  }
  *id = static_cast<PF_PathID>(masks[static_cast<std::size_t>(index)].id);
  return PF_Err_NONE;
}

// The path at the render's resolution; null where the layer has no such mask and for a mask without corners.
PF_Err checkoutPath(PF_ProgPtr effect, PF_PathID id, A_long time, A_long, A_u_long timeScale, PF_PathOutlinePtr* path) {
  HostState& host = hostState();
  const std::string what = "PF_CheckoutPath " + std::to_string(id);
  if (const PF_Err refused = host.faults.refusal(HostCall::Path, what)) return refused;
  const CallScope* call = host.callOf(effect);
  if (!call) return PF_Err_BAD_CALLBACK_PARAM;
  if (!path || timeScale == 0) {
    return badArgument("PF_CheckoutPath was called without a destination or with a time scale of 0");
  }
  std::optional<Outline> outline;
  auto mask = layerMask(host.options, static_cast<int32_t>(id), static_cast<double>(time) / timeScale);
  if (mask && !mask->vertices.empty()) {
    outline = scaled(std::move(mask->vertices), factorOf(host.options.downsampleX), factorOf(host.options.downsampleY));
  }
  *path = host.paths.checkOut(*call, id, std::move(outline));
  return PF_Err_NONE;
}

PF_Err checkinPath(PF_ProgPtr effect, PF_PathID id, PF_Boolean changed, PF_PathOutlinePtr path) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::CheckinPath, "PF_CheckinPath " + std::to_string(id));
  const CallScope* call = host.callOf(effect);
  if (!call || !host.paths.checkIn(*call, id, path)) return PF_Err_BAD_CALLBACK_PARAM;
  if (changed) return badArgument("path " + std::to_string(id) + " was checked in as changed, and nothing changes it");
  return refused;
}

PF_Err pathIsInverted(PF_ProgPtr effect, PF_PathID id, PF_Boolean* inverted) {
  HostState& host = hostState();
  const std::string what = "PF_PathIsInverted " + std::to_string(id);
  if (const PF_Err refused = host.faults.refusal(HostCall::Path, what)) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  const auto mask = layerMask(host.options, static_cast<int32_t>(id));
  if (!mask || !inverted) {
    return badArgument("PF_PathIsInverted was asked about path " + std::to_string(id) +
                       ", which the layer lacks, or without a destination");
  }
  *inverted = mask->inverted ? 1 : 0;
  return PF_Err_NONE;
}

PF_PathQuerySuite1 makePathQuerySuite() {
  auto suite = tableOfUnimplementedSlots<PF_PathQuerySuite1>();
  suite.PF_NumPaths = &numPaths;
  suite.PF_PathInfo = &pathInfo;
  suite.PF_CheckoutPath = &checkoutPath;
  suite.PF_CheckinPath = &checkinPath;
  return suite;
}

PF_PathDataSuite1 makePathDataSuite() {
  auto suite = tableOfUnimplementedSlots<PF_PathDataSuite1>();
  suite.PF_PathIsInverted = &pathIsInverted;
  return suite;
}

}  // namespace

const PF_PathQuerySuite1& pathQuerySuite() {
  static const PF_PathQuerySuite1 suite = makePathQuerySuite();
  return suite;
}

const PF_PathDataSuite1& pathDataSuite() {
  static const PF_PathDataSuite1 suite = makePathDataSuite();
  return suite;
}

}  // namespace quiltor::standalone
