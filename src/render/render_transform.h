#pragma once

#include <cstdint>

#include "formats/pattern_image.h"
#include "render/kernels/sample.h"
#include "render/layer_transform.h"
#include "render/render_block.h"

namespace quiltor {

enum class PatternSource : int32_t { Layer = 0, File = 1 };

// The parameter values in the form in which the passes use them.
struct RenderTransform {
  const PatternImage* patternImage = nullptr;  // null when none is loaded

  PatternSource sourceMode = PatternSource::File;
  bool lockOn = false;
  TileMode tileMode = TileMode::Tiled;
  int32_t blendMode = 0;
  double opacity = 1;      // 0 .. 1
  double scaleFactor = 1;  // pattern pixels per frame pixel
  double offsetX = 0, offsetY = 0;
  double angle = 0;  // radians
  bool invertOn = false;
  float tintR = 0, tintG = 0, tintB = 0;
  double tintAmount = 0;  // 0 .. 1
  double blurRadius = 0;

  double layerInvScaleX = 1, layerInvScaleY = 1;
  double layerPosX = 0, layerPosY = 0;  // full-resolution pixels
  double layerAngle = 0;                // radians
  double layerAnchorX = 0, layerAnchorY = 0;

  double cosAngle = 1, sinAngle = 0;
  double cosLayer = 1, sinLayer = 0;  // of the layer's rotation taken back

  void setLayer(const LayerTransform& layer);
  // Takes over the parameter slots and computes the cosines and sines, once per frame.
  void setParameters(const RenderBlock& block);
  // What the sampling needs of this and of the block.
  SampleTransform sampling(const RenderBlock& block) const;
};

}  // namespace quiltor
