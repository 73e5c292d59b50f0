#include <cstddef>
#include <string>

#include "standalone/host/services/host_state.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/effect_streams.h"
#include "standalone/host/suites/layer_handle.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

A_Err getEffectLayer(PF_ProgPtr effect, AEGP_LayerH* layer) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::Layer, "AEGP_GetEffectLayer")) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!layer) return badArgument("AEGP_GetEffectLayer was called without a destination");
  *layer = layerHandle();
  return PF_Err_NONE;
}

A_Err getLayerNumMasks(AEGP_LayerH layer, A_long* count) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::Mask, "AEGP_GetLayerNumMasks")) return refused;
  if (!requireLayer(layer, "the number of masks")) return PF_Err_BAD_CALLBACK_PARAM;
  if (!count) return badArgument("AEGP_GetLayerNumMasks was called without a destination");
  *count = static_cast<A_long>(host.options.masks.size());
  return PF_Err_NONE;
}

A_Err getLayerMaskByIndex(AEGP_LayerH layer, AEGP_MaskIndex index, AEGP_MaskRefH* mask) {
  HostState& host = hostState();
  const std::string what = "AEGP_GetLayerMaskByIndex " + std::to_string(index);
  if (const PF_Err refused = host.faults.refusal(HostCall::Mask, what)) return refused;
  if (!requireLayer(layer, "a mask")) return PF_Err_BAD_CALLBACK_PARAM;
  if (!mask) return badArgument("AEGP_GetLayerMaskByIndex was called without a destination");
  const std::vector<Mask>& masks = host.options.masks;
  if (index < 0 || static_cast<std::size_t>(index) >= masks.size()) {
    return badArgument("mask " + std::to_string(index) + " was asked for, of " + std::to_string(masks.size()));
  }
  *mask = host.masks.open(masks[static_cast<std::size_t>(index)].id);
  return PF_Err_NONE;
}

A_Err getMaskId(AEGP_MaskRefH mask, AEGP_MaskIDVal* id) {
  HostState& host = hostState();
  if (!id) return badArgument("AEGP_GetMaskID was called without a destination");
  const auto found = host.masks.idOf(mask);
  if (!found) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string what = "AEGP_GetMaskID of mask " + std::to_string(*found);
  if (const PF_Err refused = host.faults.refusal(HostCall::Mask, what)) return refused;
  *id = *found;
  return PF_Err_NONE;
}

A_Err disposeMask(AEGP_MaskRefH mask) {
  HostState& host = hostState();
  const PF_Err refused = host.faults.refusal(HostCall::DisposeMask, "AEGP_DisposeMask");
  if (!host.masks.idOf(mask)) return PF_Err_BAD_CALLBACK_PARAM;
  host.streams.checkMask(mask);
  host.masks.dispose(mask);
  return refused;
}

AEGP_PFInterfaceSuite1 makePfInterfaceSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_PFInterfaceSuite1>();
  suite.AEGP_GetEffectLayer = &getEffectLayer;
  suite.AEGP_GetNewEffectForEffect = &getNewEffectForEffect;
  return suite;
}

AEGP_MaskSuite5 makeLayerMaskSuite() {
  auto suite = tableOfUnimplementedSlots<AEGP_MaskSuite5>();
  suite.AEGP_GetLayerNumMasks = &getLayerNumMasks;
  suite.AEGP_GetLayerMaskByIndex = &getLayerMaskByIndex;
  suite.AEGP_DisposeMask = &disposeMask;
  suite.AEGP_GetMaskID = &getMaskId;
  return suite;
}

}  // namespace

AEGP_LayerH layerHandle() {
  static int theLayer = 0;
  return reinterpret_cast<AEGP_LayerH>(&theLayer);
}

bool requireLayer(AEGP_LayerH layer, const char* asked) {
  if (layer == layerHandle()) return true;
  hostState().findings.record(FindingKind::ObjectUnknown, std::string(asked) + " was asked of what is no layer");
  return false;
}

const AEGP_PFInterfaceSuite1& pfInterfaceSuite() {
  static const AEGP_PFInterfaceSuite1 suite = makePfInterfaceSuite();
  return suite;
}

const AEGP_MaskSuite5& layerMaskSuite() {
  static const AEGP_MaskSuite5 suite = makeLayerMaskSuite();
  return suite;
}

}  // namespace quiltor::standalone
