#include "render/render_frame.h"

#include <algorithm>
#include <cstring>

#include "render/kernels/blur.h"
#include "render/kernels/composite.h"
#include "render/worker_threads.h"

namespace quiltor {
namespace {

// Beyond any frame's size; a radius that is larger weighs all its taps alike.
constexpr int32_t kLargestRadius = 1 << 30;

float* resultRow(const RenderBlock& block, int32_t y) {
  return block.result.pixels + static_cast<size_t>(y) * static_cast<size_t>(block.result.width) * 4;
}

PatternPixels pixelsOf(const PatternImage& image) {
  return {image.pixels.data(), image.pixels.size(), image.width, image.height, image.channels, ChannelType::Byte};
}

PatternPixels pixelsOf(const WorldRecord& world) {
  const ChannelType type = world.bits == 8 ? ChannelType::Byte : ChannelType::Float;
  const size_t size = static_cast<size_t>(world.rowBytes) * static_cast<size_t>(world.height);
  return {world.pixels, size, world.width, world.height, 4, type};
}

PatternPixels choosePattern(const RenderBlock& block, const RenderTransform& transform) {
  if (transform.sourceMode == PatternSource::Layer) return pixelsOf(block.worlds[1]);
  return transform.patternImage ? pixelsOf(*transform.patternImage) : PatternPixels{};
}

// Less than one pixel is no blur; the negated comparison takes in what is not a number.
int32_t blurRadiusInPixels(double radius) {
  if (!(radius >= 1)) return 0;
  return radius < kLargestRadius ? static_cast<int32_t>(radius) : kLargestRadius;
}

void samplePass(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform) {
  const SampleTransform sampling = transform.sampling(block);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    for (int32_t y = first; y < end; ++y) {
      sampleRow(frame.pattern, sampling, y, static_cast<size_t>(frame.width), resultRow(block, y));
    }
  });
}

void blurPasses(const RenderBlock& block, const FrameState& frame, int32_t radius) {
  const BlurFrame picture{block.result.pixels, static_cast<size_t>(block.result.width), frame.width, frame.height};
  BlurScratch scratch(frame.width, frame.height);
  const TentFilter across(radius, frame.width), down(radius, frame.height);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) { blurAcross(picture, across, first, end, scratch); });
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) { blurDown(scratch, down, first, end, picture); });
}

void compositePass(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform) {
  const WorldRecord& input = block.worlds[0];
  const ChannelType type = input.bits == 8 ? ChannelType::Byte : ChannelType::Float;
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    for (int32_t y = first; y < end; ++y) {
      const auto* row =
          static_cast<const uint8_t*>(input.pixels) + static_cast<size_t>(y) * static_cast<size_t>(input.rowBytes);
      compositeRow(row, type, transform.blendMode, transform.opacity, static_cast<size_t>(frame.width),
                   resultRow(block, y));
    }
  });
}

void drawFrame(RenderBlock& block, FrameState& frame, RenderTransform& transform) {
  transform.setParameters(block);
  const WorldRecord& input = block.worlds[0];
  ResultRecord& result = block.result;
  frame.width = std::min(input.width, result.width);
  frame.height = std::min(input.height, result.height);
  frame.pattern = choosePattern(block, transform);

  const bool drawn = frame.pattern.usable();
  if (!drawn || frame.width < result.width || frame.height < result.height) {
    std::memset(result.pixels, 0, static_cast<size_t>(result.rowBytes) * static_cast<size_t>(result.height));
  }
  if (frame.width < 1 || frame.height < 1) return;
  if (drawn) {
    samplePass(block, frame, transform);
    if (const int32_t radius = blurRadiusInPixels(transform.blurRadius); radius > 0) blurPasses(block, frame, radius);
  }
  compositePass(block, frame, transform);
}

}  // namespace

RenderFrame renderFrame = drawFrame;

}  // namespace quiltor
