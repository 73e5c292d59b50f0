#pragma once

#include <vector>

#include "tests/reference/picture.h"

namespace quiltor::reference {

enum class Tile { Single = 0, Tiled = 1, Mirrored = 2 };

// The layer's own transform, in full-resolution units: scale in percent, rotation in degrees.
struct LayerPlacement {
  double positionX = 0, positionY = 0;
  double scaleX = 100, scaleY = 100;
  double rotation = 0;
  double anchorX = 0, anchorY = 0;
};

// One frame as the renderer sees it: pictures already read into floats, parameters already converted.
struct Frame {
  Picture input;
  int originX = 0, originY = 0;  // of the input in the frame
  int outputWidth = 0, outputHeight = 0;

  bool patternIsFile = false;
  Picture pattern;  // empty: nothing is loaded

  bool lock = false;
  LayerPlacement layer;
  Tile tile = Tile::Tiled;
  int blendMode = 0;  // from 0
  float opacity = 100;
  float scale = 100;
  float offsetX = 0, offsetY = 0;  // whole pixels
  float rotation = 0;              // whole degrees
  bool invert = false;
  Pixel tint;
  float tintOpacity = 0;
  float blur = 0;
  float downsampleX = 1, downsampleY = 1;
};

// Draws a frame one pixel at a time, by the formulas as they are written down: slow, plain and single-threaded. The
// renderer of the effect is held against it.
Picture render(const Frame& frame);

// Its steps, for tests of one of them.
struct Position {
  double x = 0, y = 0;
};
// Where output pixel (x, y) lies in the pattern, before tiling.
Position patternPosition(const Frame& frame, int x, int y);
// The pattern over the common part of input and output, with inversion and tint.
Picture sampled(const Frame& frame);
// The tent blur of the colours; alpha stays. Sums are exact where all colours are below 2 in magnitude.
void blur(Picture& picture, float radius);
// The same with sums in 32 bits throughout, tap by tap. radius is at least 1.
void plainBlur(Picture& picture, int radius);

}  // namespace quiltor::reference
