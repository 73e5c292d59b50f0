#include "render/render_transform.h"

#include <numbers>

#include "description/language/param_index.h"
#include "render/kernels/blend_modes.h"
#include "render/trigonometry.h"

namespace quiltor {
namespace {

// Deliberate: the layer's rotation is taken with pi as a 32-bit float has it, the effect's own with the full one.
constexpr double kLayerPi = 3.1415927410125732;

double inverseScale(double percent) {
  const double quotient = 100.0 / percent;
  return quotient == 0 ? 1.0 : quotient;
}

// Menu values come from the host: one beyond the menu's end is not an enumerator.
TileMode tileModeOf(float value) {
  if (value < 1) return TileMode::Single;
  return value < 2 ? TileMode::Tiled : TileMode::Mirrored;
}

int32_t blendModeOf(float value) {
  const float beyond = static_cast<float>(BlendMode::Count);
  return value >= 0 && value < beyond ? static_cast<int32_t>(value) : static_cast<int32_t>(BlendMode::Count);
}

}  // namespace

void RenderTransform::setLayer(const LayerTransform& layer) {
  layerInvScaleX = inverseScale(layer.scaleX);
  layerInvScaleY = inverseScale(layer.scaleY);
  layerPosX = layer.positionX;
  layerPosY = layer.positionY;
  layerAngle = layer.rotation * kLayerPi / 180.0;
  layerAnchorX = layer.anchorX;
  layerAnchorY = layer.anchorY;
}

void RenderTransform::setParameters(const RenderBlock& block) {
  const auto scalar = [&](Param::Index index) { return block.slot(index).scalar(); };
  sourceMode = scalar(Param::source) < 1 ? PatternSource::Layer : PatternSource::File;
  lockOn = scalar(Param::lock) != 0;
  tileMode = tileModeOf(scalar(Param::tilemode));
  blendMode = blendModeOf(scalar(Param::blendmode));
  opacity = static_cast<double>(scalar(Param::opacity)) * 0.01;
  scaleFactor = 100.0 / static_cast<double>(scalar(Param::scale));
  const auto& offset = block.slot(Param::offset).words;
  offsetX = static_cast<double>(offset[2]);
  offsetY = static_cast<double>(offset[3]);
  angle = -std::numbers::pi * static_cast<double>(scalar(Param::rotation)) / 180.0;
  invertOn = scalar(Param::invert) != 0;
  const auto& tint = block.slot(Param::tintcolor).words;
  tintR = tint[1];
  tintG = tint[2];
  tintB = tint[3];
  tintAmount = static_cast<double>(scalar(Param::tintopacity)) * 0.01;
  blurRadius = static_cast<double>(scalar(Param::blur));

  cosAngle = exactCosine(angle);
  sinAngle = exactSine(angle);
  cosLayer = exactCosine(-layerAngle);
  sinLayer = exactSine(-layerAngle);
}

SampleTransform RenderTransform::sampling(const RenderBlock& block) const {
  const double dsX = static_cast<double>(block.downsampleX), dsY = static_cast<double>(block.downsampleY);
  SampleTransform t;
  t.originX = block.worlds[0].originX;
  t.originY = block.worlds[0].originY;
  t.lockOn = lockOn;
  t.lockX = dsX * layerPosX;
  t.lockY = dsY * layerPosY;
  t.lockCos = cosLayer;
  t.lockSin = sinLayer;
  t.lockInvScaleX = layerInvScaleX;
  t.lockInvScaleY = layerInvScaleY;
  t.lockAnchorX = dsX * layerAnchorX;
  t.lockAnchorY = dsY * layerAnchorY;
  t.offsetX = offsetX;
  t.offsetY = offsetY;
  t.cosine = cosAngle;
  t.sine = sinAngle;
  t.scaleFactor = scaleFactor;
  // A pattern layer shrinks with the frame by itself, a picture from a file does not.
  t.downsampleX = sourceMode == PatternSource::File ? dsX : 1;
  t.downsampleY = sourceMode == PatternSource::File ? dsY : 1;
  t.tileMode = tileMode;
  t.invertOn = invertOn;
  t.tintR = tintR;
  t.tintG = tintG;
  t.tintB = tintB;
  t.tintAmount = tintAmount;
  return t;
}

}  // namespace quiltor
