#pragma once

#include <cstddef>
#include <cstdint>

#include "render/kernels/composite.h"
#include "render/kernels/pixel_run.h"
#include "render/kernels/tile_mode.h"

namespace quiltor {

// The picture that a frame repeats. Pixels are borrowed: rows top to bottom without padding, channels R, G, B[, A].
// Byte pictures hold bytesPerPixel bytes from one pixel to the next and are opaque unless that is 4; float pictures
// hold four floats a pixel.
struct PatternPixels {
  const void* data = nullptr;
  size_t size = 0;  // bytes
  int32_t width = 0;
  int32_t height = 0;
  int32_t bytesPerPixel = 4;
  ChannelType type = ChannelType::Byte;

  // A picture that can be sampled: at least one pixel, no more than 32 bits count, and every pixel's colour inside the
  // array.
  bool usable() const;
};

// From a pixel of the frame to a place in the pattern, and what happens to the colour found there. Lengths are pixels
// of the frame unless named otherwise.
struct SampleTransform {
  double originX = 0, originY = 0;  // of the frame's first pixel
  bool lockOn = false;              // follow the layer's own transform
  double lockX = 0, lockY = 0;      // layer position
  double lockCos = 1, lockSin = 0;  // of the layer's rotation, taken back
  double lockInvScaleX = 1, lockInvScaleY = 1;
  double lockAnchorX = 0, lockAnchorY = 0;
  double offsetX = 0, offsetY = 0;
  double cosine = 1, sine = 0;
  double scaleFactor = 1;                   // pattern pixels per frame pixel
  double downsampleX = 1, downsampleY = 1;  // 1 for patterns that shrink with the frame by themselves
  TileMode tileMode = TileMode::Tiled;
  bool invertOn = false;
  float tintR = 0, tintG = 0, tintB = 0;
  double tintAmount = 0;
};

// Samples count pixels of the frame, at most a run's length, from column x of row y. Colour is bilinear, towards the
// last row and column without wrapping; alpha is that of the texel above and to the left. Deliberate: outside a single
// tile the pattern is opaque black. A place that is not finite reads texel (0, 0), or counts as outside a single tile.
void sampleRun(const PatternPixels& pattern, const SampleTransform& transform, int32_t x, int32_t y, size_t count,
               PixelRun& out);

// The fold of the sampling alone, for coordinates in a row: what foldTiled and foldMirrored give.
void foldRow(TileMode mode, int32_t size, size_t count, double* coordinates);

}  // namespace quiltor
