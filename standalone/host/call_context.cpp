#include "standalone/host/call_context.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

#include "standalone/host/interaction.h"
#include "standalone/host/services/resolution.h"
#include "standalone/host/suites/basic_suite.h"

namespace quiltor::standalone {
CallContext::CallContext(HostState& state, A_long selector, const void* effect)
    : CallScope(selectorName(selector), effect), number(selector), host(state) {}

CallContext::~CallContext() = default;

LayerSize CallContext::bufferSize() const {
  if (layer) return {layer->width(), layer->height()};
  if (params_ && params_[0]) return {params_[0]->u.ld.width, params_[0]->u.ld.height};
  return {};
}

PF_InData CallContext::makeInData() {
  const HostOptions& options = host.options;
  const LayerSize size = bufferSize();
  PF_InData in{};
  in.inter = interactionCallbacks();
  in.utils = &utilCallbacks();
  in.effect_ref = reference();
  in.quality = options.quality;
  in.version = options.interfaceVersion;
  in.appl_id = options.appId;
  in.num_params = paramCount;
  in.current_time = options.currentTime;
  in.time_step = options.timeStep;
  in.total_time = options.totalTime;
  in.local_time_step = options.timeStep;
  in.time_scale = options.timeScale;
  in.field = options.field;
  in.width = fullSize(size.width, options.downsampleX);
  in.height = fullSize(size.height, options.downsampleY);
  in.extent_hint = {0, 0, size.width, size.height};
  in.downsample_x = options.downsampleX;
  in.downsample_y = options.downsampleY;
  in.pixel_aspect_ratio = options.pixelAspect;
  in.global_data = handles.global;
  in.sequence_data = handles.sequence;
  in.frame_data = handles.frame;
  in.pica_basicP = &basicSuite();
  return in;
}

CallResult CallContext::perform(EntryPoint entryPoint, const Call& call) {
  params_ = call.params;
  CallResult result;
  result.in = makeInData();
  // Handles that the effect does not touch stay as they are.
  result.out.global_data = handles.global;
  result.out.sequence_data = handles.sequence;
  result.out.frame_data = handles.frame;
  if (call.prepare) call.prepare(result.in, result.out);

  const EnterCall enter(this);
  host.begin(*this);
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t processorStart = std::clock();
  try {
    result.code = entryPoint(call.selector, &result.in, &result.out, call.params, call.output, call.extra);
  } catch (...) {
    host.end(*this);
    throw;
  }
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.processorSeconds = static_cast<double>(std::clock() - processorStart) / CLOCKS_PER_SEC;
  host.trace("done " + selector() + " with " + std::to_string(result.code));
  checkEnd();
  host.end(*this);
  if (host.scriptFailure) std::rethrow_exception(std::exchange(host.scriptFailure, nullptr));
  return result;
}

void CallContext::checkEnd() {
  for (const CheckOut& checkOut : checkOuts_) {
    host.findings.record(FindingKind::ParamNotCheckedIn,
                         "parameter " + std::to_string(checkOut.index) + " was checked out and not checked in");
    if (checkOut.pixels) checkOut.pixels->check(host.findings);
  }
  if (input) input->check(host.findings);
  if (smart) smart->checkEnd();
}

void CallContext::forgive(PF_Handle handle, const CallResult& result) {
  if (!result.succeeded() && host.faults.struck()) host.handles.drop(handle);
}

PF_Err CallContext::checkOut(PF_ParamIndex index, A_long time, A_u_long timeScale, PF_ParamDef& destination) {
  if (!values || index < 0 || static_cast<std::size_t>(index) >= values->size()) {
    host.findings.record(FindingKind::BadArgument, "parameter " + std::to_string(index) + " was checked out, of " +
                                                       std::to_string(values ? values->size() : 0));
    return PF_Err_INVALID_INDEX;
  }
  if (params_) {
    const auto end = params_ + paramCount;
    if (std::find(params_, end, &destination) != end) {
      host.findings.record(FindingKind::ParamCheckoutIntoParams,
                           "parameter " + std::to_string(index) + " was checked out into the host's own records");
    }
  }
  const auto position = static_cast<std::size_t>(index);
  CheckOut entry{index, &destination, nullptr};
  destination = values->at(position, bufferSize(), host.options);
  if (values->isLayer(position)) fillLayer(index, time, timeScale, entry, destination);
  values->applyHook(position, destination, time, timeScale);
  std::lock_guard lock(mutex_);
  checkOuts_.push_back(std::move(entry));
  return PF_Err_NONE;
}

void CallContext::fillLayer(PF_ParamIndex index, A_long time, A_u_long timeScale, CheckOut& checkOut,
                            PF_ParamDef& destination) {
  if (number == PF_Cmd_UPDATE_PARAMS_UI || smart) {
    host.findings.record(FindingKind::WrongSelector,
                         "layer parameter " + std::to_string(index) + " was checked out where layers are not");
    return;
  }
  if (index == 0 && input) {
    destination.u.ld = input->record();
    return;
  }
  if (index == 0 && params_ && params_[0]) {
    destination.u.ld = params_[0]->u.ld;
    return;
  }
  const World* source = values->layerAt(static_cast<std::size_t>(index), time, timeScale, layer);
  if (!source) return;
  const WorldFormat format = layer ? layer->format() : source->format();
  checkOut.pixels = std::make_unique<DeliveredLayer>(*source, format, host.options, std::nullopt);
  destination.u.ld = checkOut.pixels->record();
}

PF_Err CallContext::checkIn(PF_ParamDef& record) {
  std::unique_ptr<DeliveredLayer> pixels;
  {
    std::lock_guard lock(mutex_);
    const auto last = std::find_if(checkOuts_.rbegin(), checkOuts_.rend(),
                                   [&](const CheckOut& checkOut) { return checkOut.destination == &record; });
    if (last == checkOuts_.rend()) {
      host.findings.record(FindingKind::ParamCheckedInTwice,
                           "a record was checked in that is not checked out, or not any more");
      return PF_Err_BAD_CALLBACK_PARAM;
    }
    pixels = std::move(last->pixels);
    checkOuts_.erase(std::next(last).base());
  }
  if (pixels) pixels->check(host.findings);
  return PF_Err_NONE;
}

}  // namespace quiltor::standalone
