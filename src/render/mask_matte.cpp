#include "render/mask_matte.h"

#include <algorithm>

#include "base/scope_guard.h"
#include "host/application.h"
#include "render/mask_row.h"
#include "render/worker_threads.h"

namespace quiltor {
namespace {

constexpr SuiteMessages kMaskSuiteMessages{.acquire = "Error loading suite", .release = "Error releasing suite"};

// The layer's mask with the given identifier, or null.
AEGP_MaskRefH findMask(const AEGP_MaskSuite5& masks, AEGP_LayerH layer, AEGP_MaskIDVal number) {
  A_long count = 0;
  if (masks.AEGP_GetLayerNumMasks(layer, &count) != PF_Err_NONE) return nullptr;
  for (A_long index = 0; index < count; ++index) {
    AEGP_MaskRefH mask = nullptr;
    if (masks.AEGP_GetLayerMaskByIndex(layer, index, &mask) != PF_Err_NONE || !mask) return nullptr;
    AEGP_MaskIDVal id = 0;
    if (masks.AEGP_GetMaskID(mask, &id) == PF_Err_NONE && id == number) return mask;
    masks.AEGP_DisposeMask(mask);
  }
  return nullptr;
}

bool readFeather(const AEGP_StreamSuite4& streams, const PF_InData& in, AEGP_PluginID pluginId, AEGP_MaskRefH mask,
                 AEGP_TwoDVal& feather) {
  AEGP_StreamRefH stream = nullptr;
  if (streams.AEGP_GetNewMaskStream(pluginId, mask, AEGP_MaskStream_FEATHER, &stream) != PF_Err_NONE || !stream) {
    return false;
  }
  const ScopeGuard disposeStream([&] { streams.AEGP_DisposeStream(stream); });
  const A_Time now{in.current_time, in.time_scale};
  AEGP_StreamValue2 value{};
  if (streams.AEGP_GetNewStreamValue(pluginId, stream, AEGP_LTimeMode_LayerTime, &now, 0, &value) != PF_Err_NONE) {
    return false;
  }
  feather = value.val.two_d;
  streams.AEGP_DisposeStreamValue(&value);
  return true;
}

// Where the matte's pixel for the output's first column or row lies, before it is kept inside the matte. Deliberate:
// the resolution enters for 8-bit outputs and not for deeper ones.
struct MatteOrigin {
  MatteOrigin(WorldFormat format, const WorldRecord& input, const RenderBlock& block)
      : scaled_(bytesPerPixel(format) == 4),
        x_(input.originX),
        y_(input.originY),
        downsampleX_(static_cast<double>(block.downsampleX)),
        downsampleY_(static_cast<double>(block.downsampleY)) {}

  int32_t column() const { return static_cast<int32_t>(scaled_ ? x_ * downsampleX_ : x_); }
  int32_t row(int32_t y) const { return static_cast<int32_t>((scaled_ ? y_ * downsampleY_ : y_) + y); }

 private:
  bool scaled_;
  double x_, y_, downsampleX_, downsampleY_;
};

template <class Byte>
Byte* rowOf(const PF_EffectWorld& world, int32_t y) {
  return reinterpret_cast<Byte*>(world.data) + static_cast<ptrdiff_t>(y) * world.rowbytes;
}

void limitToMatte(const RenderBlock& block, const PF_EffectWorld& input, const PF_EffectWorld& matte,
                  WorldFormat format, const PF_EffectWorld& output) {
  const MatteOrigin origin(format, block.worlds[0], block);
  const int32_t column = std::clamp(origin.column(), 0, matte.width - 1);
  const bool inputHasPixels = hasPixels(input);
  runOnWorkers(output.height, [&](int32_t first, int32_t end) {
    for (int32_t y = first; y < end; ++y) {
      const int32_t matteRow = std::clamp(origin.row(y), 0, matte.height - 1);
      const bool inInput = inputHasPixels && y < input.height;
      limitRow(format, inInput ? rowOf<const uint8_t>(input, y) : nullptr,
               inInput ? static_cast<size_t>(input.width) : 0, rowOf<const uint8_t>(matte, matteRow) + 4 * column,
               static_cast<size_t>(matte.width - column), static_cast<size_t>(output.width), rowOf<uint8_t>(output, y));
    }
  });
}

}  // namespace

MaskMatte::MaskMatte(SuiteHandler& suites, const PF_InData& in, AEGP_PluginID pluginId, int32_t number)
    : suites_(suites), in_(in), number_(number) {
  if (number_ < 1) return;
  try {
    read(pluginId);
  } catch (HostErr code) {
    missingSuite_ = code;
  }
}

MaskMatte::~MaskMatte() {
  if (paths_) paths_->PF_CheckinPath(in_.effect_ref, static_cast<PF_PathID>(number_), 0, path_);
}

void MaskMatte::read(AEGP_PluginID pluginId) {
  const AEGP_MaskSuite5& masks = suites_.layerMasks();
  AEGP_LayerH layer = nullptr;
  if (suites_.pfInterface().AEGP_GetEffectLayer(in_.effect_ref, &layer) != PF_Err_NONE || !layer) return;
  const AEGP_MaskRefH mask = findMask(masks, layer, number_);
  if (!mask) return;
  const ScopeGuard disposeMask([&] { masks.AEGP_DisposeMask(mask); });

  fill_ = &suites_.fillMatte();
  const PF_PathQuerySuite1& query = suites_.pathQuery();
  const PF_PathDataSuite1& data = suites_.pathData();
  const PF_PathID id = static_cast<PF_PathID>(number_);
  if (query.PF_CheckoutPath(in_.effect_ref, id, in_.current_time, in_.time_step, in_.time_scale, &path_) !=
      PF_Err_NONE) {
    return;
  }
  paths_ = &query;
  PF_Boolean inverted = 0;
  if (data.PF_PathIsInverted(in_.effect_ref, id, &inverted) != PF_Err_NONE) return;
  inverted_ = inverted != 0;
  whole_ = path_ && readFeather(suites_.maskStreams(), in_, pluginId, mask, feather_);
}

HostErr MaskMatte::apply(const ScopedSuite<PF_WorldSuite2>& worlds, const WorldAccess& access, PF_OutData& out,
                         const RenderBlock& block, const PF_EffectWorld& input, const PF_EffectWorld& output) {
  if (number_ < 1) return PF_Err_NONE;
  // The video editor has none of these suites and no masks of this kind.
  const bool mayBeMissing = isVideoEditor(in_);
  const ScopedSuite<PF_MaskSuite1> masks(in_.pica_basicP, kAEGPMaskSuite, kAEGPMaskSuiteVersion1,
                                         mayBeMissing ? nullptr : &out, kMaskSuiteMessages);
  if (!masks) return PF_Err_NONE;
  if (missingSuite_) {
    if (mayBeMissing) return PF_Err_NONE;
    throwHostError(missingSuite_);
  }
  if (!whole_) return PF_Err_NONE;
  const WorldFormat format = access.formatOf(output);
  if (hasPixels(input) && access.formatOf(input) != format) throwHostError(PF_Err_BAD_CALLBACK_PARAM);

  PF_EffectWorld matte{};
  // A layer of one pixel has a matte of one pixel at any resolution.
  const auto scaled = [](A_long size, float downsample) {
    return std::max(static_cast<A_long>(static_cast<double>(size) * static_cast<double>(downsample)), A_long{1});
  };
  if (const HostErr code =
          worlds->PF_NewWorld(in_.effect_ref, scaled(in_.width, block.downsampleX),
                              scaled(in_.height, block.downsampleY), 0, PF_PixelFormat_ARGB32, &matte)) {
    return code;
  }
  const ScopeGuard disposeMatte([&] { worlds->PF_DisposeWorld(in_.effect_ref, &matte); });
  const PF_Pixel white{255, 255, 255, 255};
  if (const HostErr code = fill_->fill(in_.effect_ref, &white, nullptr, &matte)) return code;
  if (const HostErr code = masks->PF_MaskWorldWithPath(
          in_.effect_ref, &path_, feather_.x * static_cast<double>(block.downsampleX),
          feather_.y * static_cast<double>(block.downsampleY), inverted_, 1.0, in_.quality, &matte, nullptr)) {
    return code;
  }
  if (hasPixels(matte)) limitToMatte(block, input, matte, format, output);
  return PF_Err_NONE;
}

}  // namespace quiltor
