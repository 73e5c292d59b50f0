#include "standalone/host/smart_frame.h"

#include <string>
#include <utility>

#include "standalone/host/call_context.h"
#include "standalone/host/services/rectangle.h"
#include "standalone/host/services/resolution.h"
#include "standalone/host/suites/suite_table.h"

namespace quiltor::standalone {
namespace {

// The frame that the reference's call renders; wrong selectors are recorded.
SmartFrame* frameOf(PF_ProgPtr effect, A_long selector) {
  auto* context = dynamic_cast<CallContext*>(hostState().callOf(effect));
  if (!context) return nullptr;
  if (context->smart && context->number == selector) return context->smart;
  context->host.findings.record(FindingKind::WrongSelector,
                                "a callback of " + selectorName(selector) + " was called in another call");
  return nullptr;
}

PF_Err badArgument(const char* text) {
  hostState().findings.record(FindingKind::BadArgument, text);
  return PF_Err_BAD_CALLBACK_PARAM;
}

PF_Err checkoutLayer(PF_ProgPtr effect, PF_ParamIndex index, A_long id, const PF_RenderRequest* request, A_long time,
                     A_long, A_u_long timeScale, PF_CheckoutResult* result) {
  SmartFrame* frame = frameOf(effect, PF_Cmd_SMART_PRE_RENDER);
  if (!frame) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string what = "checkout_layer " + std::to_string(index) + " as " + std::to_string(id);
  if (const PF_Err refused = hostState().faults.refusal(HostCall::CheckoutLayer, what)) return refused;
  if (!request || !result) return badArgument("checkout_layer was called without a request or a result record");
  return frame->checkOutLayer(index, id, request->rect, time, timeScale, *result);
}

PF_Err checkoutLayerPixels(PF_ProgPtr effect, A_long id, PF_EffectWorld** pixels) {
  SmartFrame* frame = frameOf(effect, PF_Cmd_SMART_RENDER);
  if (!frame) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string what = "checkout_layer_pixels " + std::to_string(id);
  if (const PF_Err refused = hostState().faults.refusal(HostCall::CheckoutLayerPixels, what)) return refused;
  if (!pixels) return badArgument("checkout_layer_pixels was called without a destination");
  return frame->checkOutPixels(id, *pixels);
}

PF_Err checkinLayerPixels(PF_ProgPtr effect, A_long id) {
  SmartFrame* frame = frameOf(effect, PF_Cmd_SMART_RENDER);
  if (!frame) return PF_Err_BAD_CALLBACK_PARAM;
  const std::string what = "checkin_layer_pixels " + std::to_string(id);
  const PF_Err refused = hostState().faults.refusal(HostCall::CheckinLayerPixels, what);
  const PF_Err code = frame->checkInPixels(id);
  return code ? code : refused;
}

PF_Err checkoutOutput(PF_ProgPtr effect, PF_EffectWorld** output) {
  SmartFrame* frame = frameOf(effect, PF_Cmd_SMART_RENDER);
  if (!frame) return PF_Err_BAD_CALLBACK_PARAM;
  if (const PF_Err refused = hostState().faults.refusal(HostCall::CheckoutOutput, "checkout_output")) return refused;
  if (!output) return badArgument("checkout_output was called without a destination");
  return frame->checkOutOutput(*output);
}

}  // namespace

SmartFrame::SmartFrame(HostState& host, const ParamValues& values, const World& layer)
    : host_(host), values_(values), layer_(layer), nothing_(layer.format(), 0, 0) {}

PF_PreRenderCallbacks SmartFrame::preRenderCallbacks() {
  auto callbacks = tableOfUnimplementedSlots<PF_PreRenderCallbacks>();
  callbacks.checkout_layer = &checkoutLayer;
  return callbacks;
}

PF_SmartRenderCallbacks SmartFrame::renderCallbacks() {
  auto callbacks = tableOfUnimplementedSlots<PF_SmartRenderCallbacks>();
  callbacks.checkout_layer_pixels = &checkoutLayerPixels;
  callbacks.checkin_layer_pixels = &checkinLayerPixels;
  callbacks.checkout_output = &checkoutOutput;
  return callbacks;
}

PF_Err SmartFrame::checkOutLayer(PF_ParamIndex index, A_long id, const PF_LRect& request, A_long time,
                                 A_u_long timeScale, PF_CheckoutResult& result) {
  result = {};
  if (id < 0) host_.findings.record(FindingKind::CheckoutIdNegative, "check-out id " + std::to_string(id));
  const auto position = static_cast<std::size_t>(index);
  if (index < 0 || position >= values_.size() || !values_.isLayer(position)) {
    return badArgument("checkout_layer was called for what is no layer parameter");
  }
  std::lock_guard lock(mutex_);
  if (entries_.contains(id)) {
    host_.findings.record(FindingKind::CheckoutIdDuplicate,
                          "check-out id " + std::to_string(id) + " was used twice in one pre-render");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  const World* source = values_.layerAt(position, time, timeScale, &layer_);
  Entry entry{source, {}, nullptr};
  if (source) {
    const HostOptions& options = host_.options;
    entry.area = intersection(request, source->bounds());
    result.result_rect = entry.area;
    result.max_result_rect = source->bounds();
    result.par = options.pixelAspect;
    result.ref_width = fullSize(source->width(), options.downsampleX);
    result.ref_height = fullSize(source->height(), options.downsampleY);
  }
  entries_.emplace(id, std::move(entry));
  return PF_Err_NONE;
}

PF_Err SmartFrame::checkOutPixels(A_long id, PF_EffectWorld*& pixels) {
  std::lock_guard lock(mutex_);
  const auto found = entries_.find(id);
  if (found == entries_.end()) {
    host_.findings.record(FindingKind::CheckoutIdUnknown,
                          "check-out id " + std::to_string(id) + " was not checked out in pre-render");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  Entry& entry = found->second;
  if (entry.takenOut) {
    host_.findings.record(FindingKind::CheckoutIdDuplicate,
                          "the pixels of check-out id " + std::to_string(id) + " were checked out twice");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  entry.takenOut = true;
  inputTakenOut_ = true;
  if (!entry.source) {
    if (host_.options.noLayerPixels == NoLayerPixels::Error) return PF_Err_BAD_CALLBACK_PARAM;
    pixels = host_.options.noLayerPixels == NoLayerPixels::NullWorld ? nullptr : &nothing_.record();
    return PF_Err_NONE;
  }
  entry.pixels = std::make_unique<DeliveredLayer>(*entry.source, layer_.format(), host_.options, entry.area);
  pixels = &entry.pixels->record();
  return PF_Err_NONE;
}

PF_Err SmartFrame::checkInPixels(A_long id) {
  std::lock_guard lock(mutex_);
  const auto found = entries_.find(id);
  if (found == entries_.end() || !found->second.takenOut) {
    host_.findings.record(FindingKind::CheckoutIdUnknown,
                          "check-out id " + std::to_string(id) + " was checked in without being checked out");
    return PF_Err_BAD_CALLBACK_PARAM;
  }
  if (found->second.pixels) found->second.pixels->check(host_.findings);
  found->second.pixels.reset();
  return PF_Err_NONE;
}

PF_Err SmartFrame::checkOutOutput(PF_EffectWorld*& output) {
  std::lock_guard lock(mutex_);
  if (!inputTakenOut_) {
    host_.findings.record(FindingKind::OutputBeforeInput, "the output was checked out before any input");
  }
  if (!output_) return PF_Err_BAD_CALLBACK_PARAM;
  output = &output_->record();
  return PF_Err_NONE;
}

void SmartFrame::checkEnd() {
  std::lock_guard lock(mutex_);
  for (const auto& [id, entry] : entries_) {
    if (entry.pixels) entry.pixels->check(host_.findings);
  }
}

}  // namespace quiltor::standalone
