#include "tests/render/render_case.h"

#include <sstream>

namespace quiltor::render_tests {
namespace {

const char* nameOf(PatternSource source) {
  switch (source) {
    case PatternSource::Layer:
      return "layer";
    case PatternSource::NoLayer:
      return "no layer";
    case PatternSource::PngRgb:
      return "PNG, RGB";
    case PatternSource::PngRgba:
      return "PNG, RGBA";
    case PatternSource::Jpeg:
      return "JPEG";
    case PatternSource::Placeholder:
      return "placeholder";
    case PatternSource::MissingFile:
      break;
  }
  return "missing file";
}

double decimal(PF_Fixed value) { return value / 65536.0; }

}  // namespace

bool isFile(PatternSource source) { return source != PatternSource::Layer && source != PatternSource::NoLayer; }

std::string describe(const RenderCase& f) {
  std::ostringstream text;
  text.precision(17);
  const PF_EffectWorld& input = f.input.record();
  text << f.name << ": " << (f.smart ? "smart" : "classic") << ", " << standalone::bytesPerPixel(f.input.format()) * 2
       << " bits per channel, input " << input.width << "x" << input.height << " at " << input.origin_x << ","
       << input.origin_y << ", pattern " << nameOf(f.source);
  if (f.source == PatternSource::Layer) text << " " << f.patternLayer.width() << "x" << f.patternLayer.height();
  if (isFile(f.source)) text << " " << f.file.width << "x" << f.file.height;
  text << ", tile " << f.tileMode << ", mode " << f.blendMode << ", opacity " << f.opacity << ", scale " << f.scale
       << ", offset " << decimal(f.offsetX) << "," << decimal(f.offsetY) << ", rotation " << decimal(f.rotation)
       << ", invert " << f.invert << ", tint " << int{f.tint.red} << "," << int{f.tint.green} << "," << int{f.tint.blue}
       << " at " << f.tintOpacity << ", blur " << f.blur << ", downsample " << f.downsampleX.num << "/"
       << f.downsampleX.den << "," << f.downsampleY.num << "/" << f.downsampleY.den;
  const standalone::LayerTransform& t = f.transform;
  if (f.lock) {
    text << ", locked to position " << t.positionX << "," << t.positionY << " anchor " << t.anchorX << "," << t.anchorY
         << " scale " << t.scaleX << "," << t.scaleY << " rotation " << t.rotation;
  }
  return text.str();
}

}  // namespace quiltor::render_tests
