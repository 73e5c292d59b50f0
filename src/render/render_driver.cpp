#include "render/render_driver.h"

#include <algorithm>
#include <deque>
#include <mutex>

#include "description/language/param_index.h"
#include "host/application.h"
#include "host/global_data.h"
#include "host/handle_guards.h"
#include "host/render_mutex.h"
#include "host/sequence_data.h"
#include "host/suite_handler.h"
#include "render/host_buffer.h"
#include "render/layer_transform.h"
#include "render/mask_matte.h"
#include "render/render_frame.h"
#include "render/world_access.h"

namespace quiltor {
namespace {

void fillTiming(RenderBlock& block, const PF_InData& in) {
  const auto ratio = [](const PF_RationalScale& r) {
    return r.den == 0 ? 1.0f : static_cast<float>(static_cast<double>(r.num) / static_cast<double>(r.den));
  };
  block.timeSeconds =
      in.time_scale == 0 ? 0 : static_cast<double>(in.current_time) / static_cast<double>(in.time_scale);
  block.downsampleX = ratio(in.downsample_x);
  block.downsampleY = ratio(in.downsample_y);
  block.pixelAspectNum = static_cast<float>(in.pixel_aspect_ratio.num);
  block.pixelAspectDen = static_cast<float>(in.pixel_aspect_ratio.den);
}

// Row bytes are 32 bits wide in the host's records and in ours.
int32_t rowBytesOf(int32_t width, int64_t bytesPerPixel) {
  const int64_t rowBytes = int64_t{width} * bytesPerPixel;
  if (rowBytes > INT32_MAX) throwHostError(PF_Err_OUT_OF_MEMORY);
  return static_cast<int32_t>(rowBytes);
}

// The first layer of a parameter that has the pixels of layer i; i itself when there is none. Deliberate: the input
// layer is never shared, so the effect's own two layers are always copied apart.
size_t earlierLayerWithPixelsOf(std::span<const PF_EffectWorld* const> worlds, size_t i) {
  for (size_t other = 1; other < i; ++other) {
    if (worlds[other]->data == worlds[i]->data) return other;
  }
  return i;
}

// The private copies of a frame's layers and the result, in memory of the host.
class FrameBuffers {
 public:
  FrameBuffers(const PF_HandleSuite1& handles, const WorldAccess& access) : handles_(handles), access_(access) {}

  HostErr copyWorlds(RenderBlock& block, std::span<const PF_EffectWorld* const> worlds) {
    const size_t count = std::min<size_t>(worlds.size(), kMaxWorlds);
    if (block.convertCount < 1) block.convertCount = static_cast<int32_t>(count);
    for (size_t i = 0; i < count; ++i) {
      if (const size_t same = earlierLayerWithPixelsOf(worlds, i); same < i) {
        block.worlds[i] = block.worlds[same];
        continue;
      }
      const bool converted = static_cast<int32_t>(i) < block.convertCount;
      if (const HostErr code = copyWorld(block, i, *worlds[i], converted)) return code;
    }
    return PF_Err_NONE;
  }

  // For as long as this lives; null when one of the factors is 0.
  void* allocate(int64_t rowBytes, int64_t height) {
    if (rowBytes == 0 || height == 0) return nullptr;
    return buffers_.emplace_back(handles_, std::initializer_list<int64_t>{rowBytes, height}).get();
  }

  void makeResult(RenderBlock& block, const PF_EffectWorld& output) {
    ResultRecord& result = block.result;
    result.width = std::max(output.width, 0);
    result.height = std::max(output.height, 0);
    result.rowBytes = rowBytesOf(result.width, 4 * sizeof(float));
    result.pixels = static_cast<float*>(allocate(result.rowBytes, result.height));
  }

 private:
  HostErr copyWorld(RenderBlock& block, size_t i, const PF_EffectWorld& world, bool converted) {
    WorldRecord& record = block.worlds[i];
    record.originX = world.origin_x;
    record.originY = world.origin_y;
    if (!hasPixels(world)) return PF_Err_NONE;
    const WorldFormat format = access_.formatOf(world);
    const bool bytes = channelType(format) == ChannelType::Byte;
    record.width = world.width;
    record.height = world.height;
    record.bits = bytes ? 8 : 32;
    record.rowBytes = rowBytesOf(record.width, bytes ? 4 : 16);
    record.pixels = allocate(record.rowBytes, record.height);
    if (!converted) return PF_Err_NONE;
    const HostErr code = access_.read(world, format, record);
    const bool isFloat = format == WorldFormat::ArgbFloat || format == WorldFormat::BgraFloat;
    if (i == 0 && code == PF_Err_NONE && block.range >= 1 && isFloat) measureRange(block);
    return code;
  }

  static void measureRange(RenderBlock& block) {
    const WorldRecord& input = block.worlds[0];
    const auto* channels = static_cast<const float*>(input.pixels);
    const size_t count = static_cast<size_t>(input.width) * static_cast<size_t>(input.height) * 4;
    for (size_t i = 0; i < count; ++i) {
      if (channels[i] < block.rangeMin) block.rangeMin = channels[i];
      if (channels[i] > block.rangeMax) block.rangeMax = channels[i];
    }
  }

  const PF_HandleSuite1& handles_;
  const WorldAccess& access_;
  std::deque<HostBuffer> buffers_;
};

// Data that is not in its live form, as between a flatten and the resetup after it, holds no picture.
const PatternImage* patternImageOf(const PF_HandleSuite1& handles, PF_Handle handle, const HandleLock& sequence) {
  if (handles.host_get_handle_size(handle) < sizeof(SequenceData)) return nullptr;
  const auto* data = sequence.as<SequenceData>();
  return data->flat ? nullptr : data->patternImage;
}

void drawFrame(RenderBlock& block, FrameBuffers& buffers, const LayerTransformReading& layer,
               const PatternImage* patternImage) {
  if (layer.missingSuite) throwHostError(layer.missingSuite);
  RenderTransform transform;
  transform.setLayer(layer.transform);
  transform.patternImage = patternImage;
  FrameState frame;
  frame.hostMemory = [&buffers](size_t bytes) { return buffers.allocate(static_cast<int64_t>(bytes), 1); };
  if (renderFrame) renderFrame(block, frame, transform);
}

// Masks count from 1, the slot from 0; what is not a number means no mask.
int32_t maskNumber(const RenderBlock& block) {
  const float slot = block.slot(Param::mask).scalar();
  return slot >= 0 && slot < 0x1p30f ? static_cast<int32_t>(slot) + 1 : 0;
}

}  // namespace

HostErr renderEffect(const PF_InData& in, PF_OutData& out, RenderBlock& block,
                     std::span<const PF_EffectWorld* const> worlds, PF_EffectWorld& output) {
  SuiteHandler suites(in.pica_basicP);
  const PF_HandleSuite1& handles = suites.handles();
  const HandleLock global(handles, in.global_data);
  const HandleLock sequence(handles, in.sequence_data);
  if (!global || !sequence) return PF_Err_NONE;

  // The layer and its mask are asked before the render waits for its turn: these calls may need the host's main thread,
  // and that may itself be waiting for the render mutex.
  const AEGP_PluginID pluginId = static_cast<AEGP_PluginID>(global.as<GlobalData>()->pluginId);
  const LayerTransformReading layer = readLayerTransform(suites, in, pluginId);
  MaskMatte mask(suites, in, pluginId, maskNumber(block));

  const std::lock_guard turn(renderMutex());
  const ScopedSuite<PF_PixelFormatSuite> formatSuite(in.pica_basicP, kPFPixelFormatSuite, kPFPixelFormatSuiteVersion1);
  const ScopedSuite<PF_WorldSuite2> worldSuite(in.pica_basicP, kPFWorldSuite, kPFWorldSuiteVersion2);
  const bool formatsMissing = isVideoEditor(in) && !formatSuite;
  if (!worldSuite || formatsMissing) return worldSuite.error();
  const WorldAccess access(in, suites.iterate8(), worldSuite, formatSuite);

  fillTiming(block, in);
  FrameBuffers buffers(handles, access);
  if (const HostErr code = buffers.copyWorlds(block, worlds)) return code;
  buffers.makeResult(block, output);
  if (!hasPixels(output)) return PF_Err_NONE;

  if (const HostErr code = askAbort(in)) return code;
  if (const HostErr code = askAbort(in)) return code;
  drawFrame(block, buffers, layer, patternImageOf(handles, in.sequence_data, sequence));
  if (const HostErr code = access.write(block.result, access.formatOf(output), output)) return code;
  return mask.apply(worldSuite, access, out, block, *worlds[0], output);
}

}  // namespace quiltor
