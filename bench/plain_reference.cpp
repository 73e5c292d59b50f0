#include "bench/plain_reference.h"

#include "bench/pictures.h"
#include "bench/timing.h"
#include "tests/reference/render.h"

namespace quiltor::bench {
namespace {

using standalone::WorldFormat;

constexpr int kWidth = 256, kHeight = 144;

reference::Picture referencePicture(const standalone::World& world) {
  reference::Picture out(world.width(), world.height());
  for (int y = 0; y < world.height(); ++y) {
    for (int x = 0; x < world.width(); ++x) {
      const auto p = world.at(x, y);
      out.at(x, y) = {float(p.r), float(p.g), float(p.b), float(p.a)};
    }
  }
  return out;
}

}  // namespace

double plainReference(const FrameJob& job, double pixels) {
  reference::Frame frame;
  frame.input = referencePicture(layerPicture(WorldFormat::ArgbFloat, kWidth, kHeight));
  frame.outputWidth = kWidth;
  frame.outputHeight = kHeight;
  frame.pattern = referencePicture(patternPicture(WorldFormat::ArgbFloat));
  frame.tile = static_cast<reference::Tile>(job.tileMode - 1);
  frame.blendMode = job.blendMode - 1;
  frame.opacity = static_cast<float>(job.opacity);
  frame.scale = static_cast<float>(job.scale);
  frame.rotation = static_cast<float>(job.rotation);
  frame.blur = static_cast<float>(job.blur);
  frame.offsetX = kWidth / 2;
  frame.offsetY = kHeight / 2;
  return millisecondsOf([&] { reference::render(frame); }) * pixels / (double{kWidth} * kHeight);
}

}  // namespace quiltor::bench
