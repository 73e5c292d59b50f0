#include "render/render_frame.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <vector>

#include "render/kernels/blur.h"
#include "render/kernels/blur_plain.h"
#include "render/kernels/composite.h"
#include "render/kernels/streaming.h"
#include "render/worker_threads.h"

namespace quiltor {
namespace {

// Beyond any frame's size; a radius that is larger weighs all its taps alike.
constexpr int32_t kLargestRadius = 1 << 30;

float* resultAt(const RenderBlock& block, int32_t x, int32_t y) {
  return block.result.pixels +
         (static_cast<size_t>(y) * static_cast<size_t>(block.result.width) + static_cast<size_t>(x)) * 4;
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

// What a pass does with the pixels of a row, in runs from the left.
template <class Work>
void overRuns(int32_t width, const Work& work) {
  constexpr int32_t kLength = PixelRun::kLength;
  for (int32_t x = 0; x < width; x += kLength) work(x, static_cast<size_t>(std::min(kLength, width - x)));
}

// The input layer below the pattern, and how the two are mixed.
class Compositing {
 public:
  enum class Order { ByRows, ByColumns };

  Compositing(const RenderBlock& block, const RenderTransform& transform, Order order = Order::ByRows)
      : block_(block),
        input_(block.worlds[0]),
        type_(input_.bits == 8 ? ChannelType::Byte : ChannelType::Float),
        settings_{transform.blendMode, transform.opacity,
                  int64_t{block.result.rowBytes} * block.result.height > kStreamedBytes,
                  order == Order::ByRows ? PixelRun::kLength * pixelBytes() : static_cast<size_t>(input_.rowBytes)} {}

  void run(const PixelRun& pattern, int32_t x, int32_t y, size_t count) const {
    const auto* row = static_cast<const uint8_t*>(input_.pixels) +
                      static_cast<size_t>(y) * static_cast<size_t>(input_.rowBytes) +
                      static_cast<size_t>(x) * pixelBytes();
    compositeRun(pattern, row, type_, settings_, count, resultAt(block_, x, y));
  }

 private:
  size_t pixelBytes() const { return type_ == ChannelType::Byte ? 4 : 4 * sizeof(float); }

  const RenderBlock& block_;
  const WorldRecord& input_;
  ChannelType type_;
  CompositeSettings settings_;
};

// Sampling and compositing, which both look at one pixel at a time, run by run in the core's cache. The runs of a part
// follow one another downwards: neighbouring rows share texels, which are still in the nearest cache then.
void sampleAndCompositePass(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform) {
  const SampleTransform sampling = transform.sampling(block);
  const Compositing compositing(block, transform, Compositing::Order::ByColumns);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    PixelRun run;
    overRuns(frame.width, [&](int32_t x, size_t count) {
      for (int32_t y = first; y < end; ++y) {
        sampleRun(frame.pattern, sampling, x, y, count, run);
        compositing.run(run, x, y, count);
      }
    });
    finishStreaming();
  });
}

// The pattern's alpha, which is not blurred, between the blur's halves: that of each run waits in the front part of the
// run's result. Most patterns are opaque, and memory is slower than asking.
class WaitingAlpha {
 public:
  WaitingAlpha(const RenderBlock& block, const FrameState& frame)
      : block_(block), runs_(runsIn(frame.width)), opaque_(runs_ * static_cast<size_t>(frame.height)) {}

  void put(const PixelRun& run, int32_t x, int32_t y, size_t count) {
    const bool opaque = isOpaque(run, count);
    opaque_[index(x, y)] = opaque ? 1 : 0;
    if (!opaque) std::copy_n(run.a, count, resultAt(block_, x, y));
  }
  void get(int32_t x, int32_t y, size_t count, PixelRun& run) const {
    if (opaque_[index(x, y)] == 1) {
      std::fill_n(run.a, count, 1.0f);
    } else {
      std::copy_n(resultAt(block_, x, y), count, run.a);
    }
  }

 private:
  size_t index(int32_t x, int32_t y) const {
    return static_cast<size_t>(y) * runs_ + static_cast<size_t>(x) / PixelRun::kLength;
  }

  const RenderBlock& block_;
  size_t runs_;
  std::vector<uint8_t> opaque_;
};

// Sampling and the blur's horizontal half. False when a colour does not fit the sums.
bool sampleAndBlurAcrossPass(const FrameState& frame, const SampleTransform& sampling, const TentScale& scale,
                             WaitingAlpha& alpha, BlurScratch& scratch) {
  std::atomic<bool> fits = true;
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    BlurLine line(frame.width, scale.radius());
    PixelRun run;
    bool allFit = true;
    for (int32_t y = first; y < end; ++y) {
      overRuns(frame.width, [&](int32_t x, size_t count) {
        sampleRun(frame.pattern, sampling, x, y, count, run);
        alpha.put(run, x, y, count);
        allFit = line.take(run, x, count) && allFit;
      });
      line.blurAcross(scale, y, scratch);
    }
    if (!allFit) fits = false;
  });
  return fits;
}

// The blur's vertical half and compositing. Deliberate: the workers share columns of runs instead of rows. Each goes
// all the way down, because the sums at the top of a part are as much work as its rows when the radius is large.
void blurDownAndCompositePass(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform,
                              const TentScale& scale, const WaitingAlpha& alpha, const BlurScratch& scratch) {
  const Compositing compositing(block, transform, Compositing::Order::ByColumns);
  constexpr int32_t kLength = PixelRun::kLength;
  runOnWorkers(static_cast<int32_t>(runsIn(frame.width)), [&](int32_t first, int32_t end) {
    PixelRun run;
    for (int32_t x = first * kLength; x < std::min(end * kLength, frame.width); x += kLength) {
      const auto count = static_cast<size_t>(std::min(kLength, frame.width - x));
      BlurColumns columns(scratch, scale, x, count, 0);
      for (int32_t y = 0; y < frame.height; ++y) {
        columns.next(run);
        alpha.get(x, y, count, run);
        compositing.run(run, x, y, count);
      }
    }
    finishStreaming();
  });
}

// One pass after the other through the whole frame, tap by tap.
void plainBlurPasses(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform,
                     int32_t radius) {
  const SampleTransform sampling = transform.sampling(block);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    PixelRun run;
    for (int32_t y = first; y < end; ++y) {
      overRuns(frame.width, [&](int32_t x, size_t count) {
        sampleRun(frame.pattern, sampling, x, y, count, run);
        packRun(run, count, resultAt(block, x, y));
      });
    }
  });
  const BlurFrame picture{block.result.pixels, static_cast<size_t>(block.result.width), frame.width, frame.height};
  PlainBlurScratch scratch(frame.width, frame.height);
  const PlainTentFilter across(radius, frame.width), down(radius, frame.height);
  runOnWorkers(frame.height,
               [&](int32_t first, int32_t end) { blurAcrossPlainly(picture, across, first, end, scratch); });
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) { blurDownPlainly(scratch, down, first, end, picture); });
  const Compositing compositing(block, transform);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    PixelRun run;
    for (int32_t y = first; y < end; ++y) {
      overRuns(frame.width, [&](int32_t x, size_t count) {
        unpackRun(resultAt(block, x, y), count, run);
        compositing.run(run, x, y, count);
      });
    }
    finishStreaming();
  });
}

void blurredPasses(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform,
                   int32_t radius) {
  if (radius <= kLargestExactRadius) {
    const TentScale across(radius, frame.width), down(radius, frame.height);
    BlurScratch scratch(frame.width, frame.height, frame.hostMemory(BlurScratch::bytes(frame.width, frame.height)));
    WaitingAlpha alpha(block, frame);
    if (sampleAndBlurAcrossPass(frame, transform.sampling(block), across, alpha, scratch)) {
      return blurDownAndCompositePass(block, frame, transform, down, alpha, scratch);
    }
  }
  plainBlurPasses(block, frame, transform, radius);
}

// Without a pattern everything is composited with a transparent one.
void compositeNothingPass(const RenderBlock& block, const FrameState& frame, const RenderTransform& transform) {
  const Compositing compositing(block, transform);
  runOnWorkers(frame.height, [&](int32_t first, int32_t end) {
    const PixelRun transparent{};
    for (int32_t y = first; y < end; ++y) {
      overRuns(frame.width, [&](int32_t x, size_t count) { compositing.run(transparent, x, y, count); });
    }
    finishStreaming();
  });
}

void drawFrame(RenderBlock& block, FrameState& frame, RenderTransform& transform) {
  transform.setParameters(block);
  const WorldRecord& input = block.worlds[0];
  ResultRecord& result = block.result;
  frame.width = std::min(input.width, result.width);
  frame.height = std::min(input.height, result.height);
  frame.pattern = choosePattern(block, transform);

  if (frame.width < result.width || frame.height < result.height) {
    std::memset(result.pixels, 0, static_cast<size_t>(result.rowBytes) * static_cast<size_t>(result.height));
  }
  if (frame.width < 1 || frame.height < 1) return;
  if (!frame.pattern.usable()) return compositeNothingPass(block, frame, transform);
  if (const int32_t radius = blurRadiusInPixels(transform.blurRadius); radius > 0) {
    blurredPasses(block, frame, transform, radius);
  } else {
    sampleAndCompositePass(block, frame, transform);
  }
}

}  // namespace

RenderFrame renderFrame = drawFrame;

}  // namespace quiltor
