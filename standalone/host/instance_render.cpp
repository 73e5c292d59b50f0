#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "standalone/host/call_context.h"
#include "standalone/host/instance.h"
#include "standalone/host/services/rectangle.h"

namespace quiltor::standalone {
namespace {

// Keeps the first error and the first message of the calls that make up a frame.
bool note(RenderResult& frame, const CallResult& call) {
  if (frame.code == PF_Err_NONE) frame.code = call.code;
  if (frame.message.empty()) frame.message = call.message();
  frame.seconds += call.seconds;
  frame.processorSeconds += call.processorSeconds;
  frame.outFlags |= call.out.out_flags;
  return call.succeeded();
}

void checkOutput(HostState& host, const World& output) {
  if (const auto damage = output.damage()) {
    host.findings.record(FindingKind::WorldOverrun, "the output world was written outside its pixels: " + *damage);
  }
}

int16_t bitDepth(WorldFormat format) {
  switch (format) {
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      return 8;
    case WorldFormat::Argb16:
      return 16;
    default:
      return 32;
  }
}

struct Size {
  int width, height;
};

World outputOf(const Frame& frame, Size size, const HostOptions& options) {
  const WorldFormat format = frame.input->format();
  World* const spare = options.strict ? nullptr : frame.spare;
  if (spare && spare->format() == format && spare->width() == size.width && spare->height() == size.height) {
    return std::move(*spare);
  }
  return World(format, size.width, size.height, options.outputRows);
}

constexpr PF_RenderOutputFlags kReturnsExtraPixels = 1;

void checkRectangles(HostState& host, const PF_LRect& request, const PF_PreRenderOutput& output) {
  if (!contains(request, output.result_rect) && !(output.flags & kReturnsExtraPixels)) {
    host.findings.record(FindingKind::ResultRectOutsideRequest, "the result rectangle reaches outside the request");
  }
  if (!contains(output.max_result_rect, output.result_rect)) {
    host.findings.record(FindingKind::ResultRectOutsideMaximum,
                         "the result rectangle reaches outside the maximum rectangle");
  }
}

// The host owns what pre-render left, whether rendering follows or not.
void deletePreRenderData(HostState& host, const void* effect, const PF_PreRenderOutput& output) {
  if (!output.pre_render_data) return;
  CallScope call("delete_pre_render_data_func", effect);
  const EnterCall enter(&call);
  host.begin(call);
  if (output.delete_pre_render_data_func) {
    output.delete_pre_render_data_func(output.pre_render_data);
  } else if (host.handles.alive(static_cast<PF_Handle>(output.pre_render_data))) {
    host.findings.record(FindingKind::BadArgument,
                         "pre-render data without a delete function is a handle, expected "
                         "memory of the C runtime");
  } else {
    std::free(output.pre_render_data);
  }
  host.end(call);
}

}  // namespace

RenderResult Instance::render(const Frame& frame) {
  HostState& host = effect_.host().state();
  const WorldFormat format = frame.input->format();
  DeliveredLayer input(*frame.input, format, host.options, std::nullopt);
  World output(format, frame.input->width(), frame.input->height(), host.options.outputRows);
  PF_Handle frameData = nullptr;
  RenderResult result;

  const auto step = [&](A_long selector, PF_EffectWorld* destination) {
    CallContext context(host, selector, &effect_);
    fillContext(context);
    context.handles.frame = frameData;
    context.layer = frame.input;
    context.input = &input;
    ParamArray array = params(frame.input);
    array[0].u.ld = input.record();
    const CallResult call = context.perform(effect_.entryPoint(),
                                            {.selector = selector, .params = array.pointers(), .output = destination});
    const EnterCall enter(&context);
    checkOutput(host, output);
    if (selector == PF_Cmd_FRAME_SETUP) frameData = call.out.frame_data;
    return note(result, call);
  };
  const bool rendered = step(PF_Cmd_FRAME_SETUP, nullptr) && step(PF_Cmd_RENDER, &output.record());
  step(PF_Cmd_FRAME_SETDOWN, nullptr);
  if (rendered) result.output = std::move(output);
  return result;
}

RenderResult Instance::renderSmart(const Frame& frame) {
  HostState& host = effect_.host().state();
  if (host.isVideoEditor()) throw std::logic_error("the video editor has no smart rendering");
  const WorldFormat format = frame.input->format();
  SmartFrame smart(host, *values_, *frame.input);
  RenderResult result;

  const auto step = [&](A_long selector, void* extra, const auto& check) {
    CallContext context(host, selector, &effect_);
    fillContext(context);
    context.layer = frame.input;
    context.smart = &smart;
    const CallResult call = context.perform(effect_.entryPoint(), {.selector = selector, .extra = extra});
    const EnterCall enter(&context);
    if (call.succeeded()) check();
    return note(result, call);
  };

  PF_PreRenderInput preInput{};
  preInput.output_request.rect = frame.request.value_or(frame.input->bounds());
  preInput.output_request.field = host.options.field;
  preInput.output_request.channel_mask = PF_ChannelMask_ARGB;
  preInput.output_request.preserve_rgb_of_zero_alpha = host.options.preserveRgbOfZeroAlpha ? 1 : 0;
  preInput.bitdepth = bitDepth(format);
  PF_PreRenderOutput preOutput{};
  PF_PreRenderCallbacks preCallbacks = SmartFrame::preRenderCallbacks();
  PF_PreRenderExtra preExtra{&preInput, &preOutput, &preCallbacks};
  const bool prepared =
      step(PF_Cmd_SMART_PRE_RENDER, &preExtra, [&] { checkRectangles(host, preInput.output_request.rect, preOutput); });
  result.resultRect = preOutput.result_rect;
  result.maxResultRect = preOutput.max_result_rect;

  if (prepared && !isEmpty(preOutput.result_rect)) {
    const PF_LRect& rect = preOutput.result_rect;
    World output = outputOf(frame, {rect.right - rect.left, rect.bottom - rect.top}, host.options);
    output.setOrigin(rect.left, rect.top);
    smart.setOutput(&output);
    PF_SmartRenderInput renderInput{};
    renderInput.output_request = preInput.output_request;
    renderInput.bitdepth = preInput.bitdepth;
    renderInput.pre_render_data = preOutput.pre_render_data;
    PF_SmartRenderCallbacks callbacks = SmartFrame::renderCallbacks();
    PF_SmartRenderExtra extra{&renderInput, &callbacks};
    const bool rendered = step(PF_Cmd_SMART_RENDER, &extra, [&] { checkOutput(host, output); });
    smart.setOutput(nullptr);
    if (rendered) result.output = std::move(output);
  }
  deletePreRenderData(host, &effect_, preOutput);
  return result;
}

}  // namespace quiltor::standalone
