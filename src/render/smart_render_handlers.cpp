#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

#include "base/scope_guard.h"
#include "description/effect_description.h"
#include "host/handle_guards.h"
#include "host/suite_handler.h"
#include "render/param_values.h"
#include "render/pre_render_data.h"
#include "render/render_driver.h"
#include "render/render_handlers.h"
#include "render/world_access.h"

namespace quiltor {
namespace {

// The first, empty request for a parameter's layer; it only asks how large the layer is.
constexpr A_long kSizeQueryId = 1000;

// The host deletes pre-render data on any thread and gives nothing but the pointer, so the way to dispose a handle is
// kept for the life of the module. Every call of the host brings the same one.
std::atomic<void (*)(PF_Handle)> disposeHandle{nullptr};

void deletePreRenderData(void* data) {
  if (const auto dispose = disposeHandle.load(); dispose && data) dispose(static_cast<PF_Handle>(data));
}

bool isEmpty(const PF_LRect& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

PF_LRect unionOf(const PF_LRect& a, const PF_LRect& b) {
  if (isEmpty(a)) return b;
  if (isEmpty(b)) return a;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

// The checkouts of one pre-render. After the first refusal the host is asked for nothing more.
class PreRender {
 public:
  PreRender(const PF_InData& in, const PF_PreRenderExtra& extra, PreRenderData& data)
      : in_(in), extra_(extra), data_(data) {}

  HostErr error() const { return error_; }
  const PF_CheckoutResult& input() const { return input_; }

  void checkOutValue(int32_t index, const ParamRecord& record) {
    if (error_) return;
    PF_ParamDef value{};
    error_ = in_.inter.checkout_param(in_.effect_ref, index, in_.current_time, in_.time_step, in_.time_scale, &value);
    if (error_) return;
    data_.param(index) = value;
    routeSpecialValue(record, value, data_.special);
    in_.inter.checkin_param(in_.effect_ref, &value);
  }

  void checkOutLayer(int32_t index, const ParamRecord& record) {
    const int32_t layer = layers_++;
    const size_t word = static_cast<size_t>(layer);
    const int32_t shift = word < data_.special.ints.size() ? data_.special.ints[word] : 0;
    const A_long time = layerCheckoutTime(record, shift, in_, data_.special.frameStep);
    PF_RenderRequest request = extra_.input->output_request;
    PF_CheckoutResult result{};
    if (index > 0) {
      // Tiling may need any part of a pattern, so its layer is asked for whole.
      request.rect = {};
      checkOut(index, index + kSizeQueryId, request, time, result);
      request.rect = result.max_result_rect;
      result = {};
    }
    checkOut(index, index, request, time, result);
    if (index == 0) input_ = result;
    if (layer < kMaxLayers) data_.layers[layer] = result;
  }

 private:
  void checkOut(int32_t index, A_long id, const PF_RenderRequest& request, A_long time, PF_CheckoutResult& result) {
    if (error_) return;
    error_ =
        extra_.cb->checkout_layer(in_.effect_ref, index, id, &request, time, in_.time_step, in_.time_scale, &result);
  }

  const PF_InData& in_;
  const PF_PreRenderExtra& extra_;
  PreRenderData& data_;
  PF_CheckoutResult input_{};
  int32_t layers_ = 0;
  HostErr error_ = PF_Err_NONE;
};

// The pixels of a frame's layers, fetched from the host and given back at the end.
class LayerPixels {
 public:
  LayerPixels(const PF_InData& in, const PF_SmartRenderCallbacks& callbacks) : in_(in), callbacks_(callbacks) {
    ids_.reserve(kMaxParams);
  }
  ~LayerPixels() {
    if (!callbacks_.checkin_layer_pixels) return;
    for (const A_long id : ids_) callbacks_.checkin_layer_pixels(in_.effect_ref, id);
  }
  LayerPixels(const LayerPixels&) = delete;
  LayerPixels& operator=(const LayerPixels&) = delete;

  // The world stays null when there is no layer or when it has no pixels.
  HostErr checkOut(A_long id, const PF_EffectWorld*& world) {
    PF_EffectWorld* pixels = nullptr;
    if (const HostErr code = callbacks_.checkout_layer_pixels(in_.effect_ref, id, &pixels)) return code;
    ids_.push_back(id);
    if (pixels && hasPixels(*pixels)) world = pixels;
    return PF_Err_NONE;
  }

 private:
  const PF_InData& in_;
  const PF_SmartRenderCallbacks& callbacks_;
  std::vector<A_long> ids_;
};

}  // namespace

HostErr smartPreRender(PF_InData& in, PF_PreRenderExtra& extra) {
  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  OwnedHandle handle(handles, sizeof(PreRenderData));
  if (!handle) return PF_Err_NONE;
  const HandleLock lock(handles, handle.get());
  if (!lock) return PF_Err_NONE;
  std::memset(lock.get(), 0, sizeof(PreRenderData));
  disposeHandle.store(handles.host_dispose_handle);
  extra.output->pre_render_data = handle.release();
  extra.output->delete_pre_render_data_func = deletePreRenderData;

  const Description& description = effectDescription();
  PreRender preRender(in, extra, *lock.as<PreRenderData>());
  for (int32_t i = 0; i < description.paramCount; ++i) {
    const ParamRecord& record = description.params[static_cast<size_t>(i)];
    if (record.kind == ParamKind::Layer) {
      preRender.checkOutLayer(i, record);
    } else {
      preRender.checkOutValue(i, record);
    }
  }
  const PF_CheckoutResult& input = preRender.input();
  extra.output->result_rect = unionOf(extra.output->result_rect, input.result_rect);
  extra.output->max_result_rect =
      unionOf(unionOf(extra.output->max_result_rect, input.max_result_rect), extra.output->result_rect);
  return preRender.error();
}

HostErr smartRender(PF_InData& in, PF_OutData& out, PF_SmartRenderExtra& extra) {
  SuiteHandler suites(in.pica_basicP);
  const HandleLock lock(suites.handles(), static_cast<PF_Handle>(extra.input->pre_render_data));
  if (!lock) return PF_Err_NONE;
  PreRenderData& data = *lock.as<PreRenderData>();

  const Description& description = effectDescription();
  RenderBlock block(description.settings);
  block.special = data.special;
  LayerPixels layers(in, *extra.cb);
  static const PF_EffectWorld kNoPixels{};
  const PF_EffectWorld* input = &kNoPixels;
  if (const HostErr code = layers.checkOut(0, input)) return code;
  std::vector<const PF_EffectWorld*> worlds{input};
  for (int32_t i = 1; i < description.paramCount; ++i) {
    const ParamRecord& record = description.params[static_cast<size_t>(i)];
    if (record.kind == ParamKind::Layer) {
      // An error is one of the host's ways to say that no layer was chosen, which means the input layer; that the user
      // wants the frame no more is none.
      const PF_EffectWorld* layer = input;
      if (layers.checkOut(i, layer) == PF_Interrupt_CANCEL) return PF_Interrupt_CANCEL;
      worlds.push_back(layer);
    } else {
      block.slots[static_cast<size_t>(i)] = slotOf(record, data.param(i));
    }
  }
  PF_EffectWorld* output = nullptr;
  if (const HostErr code = extra.cb->checkout_output(in.effect_ref, &output)) return code;
  if (!output) return PF_Err_NONE;

  if (const HostErr code = askAbort(in)) return code;
  return renderEffect(in, out, block, worlds, *output);
}

}  // namespace quiltor
