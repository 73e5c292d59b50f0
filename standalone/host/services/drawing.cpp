#include "standalone/host/services/drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace quiltor::standalone {
namespace {

constexpr Rgba kPanelGrey = {0.125, 0.125, 0.125, 1};
constexpr double kByteMaximum = 255;

// Colours as they are after their alpha was multiplied in.
Rgba premultipliedPixel(const Drawing::Image& image, int x, int y) {
  const unsigned char* const bytes = image.pixels + std::ptrdiff_t{y} * image.rowBytes + std::ptrdiff_t{x} * 4;
  const double alpha = bytes[3] / kByteMaximum;
  const double factor = (image.layout == kDRAWBOT_PixelLayout_32BGRA_Straight ? alpha : 1.0) / kByteMaximum;
  return {bytes[2] * factor, bytes[1] * factor, bytes[0] * factor, alpha};
}

Rgba over(const Rgba& top, const Rgba& below, double opacity) {
  const double rest = 1 - top.a * opacity;
  return {top.r * opacity + below.r * rest, top.g * opacity + below.g * rest, top.b * opacity + below.b * rest,
          top.a * opacity + below.a * rest};
}

}  // namespace

Drawing::Drawing(Findings& findings, int width, int height)
    : findings_(findings), pane_(WorldFormat::Argb8, width, height) {
  pane_.fill(kPanelGrey);
}

DRAWBOT_ImageRef Drawing::newImage(const Image& image) {
  auto object = std::make_unique<Image>(image);
  const void* const address = object.get();
  objects_.emplace(address, std::move(object));
  return reinterpret_cast<DRAWBOT_ImageRef>(const_cast<void*>(address));
}

const Drawing::Image* Drawing::find(const void* object) const {
  const auto found = objects_.find(object);
  if (found != objects_.end()) return found->second.get();
  findings_.record(FindingKind::ObjectUnknown, "what was passed as an image is none, or was released before");
  return nullptr;
}

bool Drawing::draw(DRAWBOT_ImageRef reference, const DRAWBOT_PointF32& origin, float opacity) {
  const Image* const image = find(reference);
  if (!image) return false;
  drawn_.push_back({image->width, image->height, image->layout, origin, opacity});
  const int left = static_cast<int>(std::lround(origin.x));
  const int top = static_cast<int>(std::lround(origin.y));
  for (int y = std::max(top, 0); y < std::min(top + image->height, pane_.height()); ++y) {
    for (int x = std::max(left, 0); x < std::min(left + image->width, pane_.width()); ++x) {
      pane_.set(x, y, over(premultipliedPixel(*image, x - left, y - top), pane_.at(x, y), opacity));
    }
  }
  return true;
}

bool Drawing::release(DRAWBOT_ObjectRef object) {
  if (!find(object)) return false;
  objects_.erase(object);
  return true;
}

void Drawing::checkEnd() {
  for (const auto& [address, image] : objects_) {
    findings_.record(FindingKind::DrawbotObjectNotReleased, "an image of " + std::to_string(image->width) + " by " +
                                                                std::to_string(image->height) +
                                                                " pixels was not released");
  }
  objects_.clear();
}

}  // namespace quiltor::standalone
