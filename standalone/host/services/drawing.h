#pragma once

#include <map>
#include <memory>
#include <vector>

#include "hostapi/custom_ui.h"
#include "standalone/host/services/findings.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// An image that an effect drew.
struct DrawnImage {
  int width = 0, height = 0;
  DRAWBOT_PixelLayout layout = kDRAWBOT_PixelLayout_32BGRA_Straight;
  DRAWBOT_PointF32 origin{};
  float opacity = 0;
};

// What an effect draws in one draw event: its images and the pane with them on it. The objects that the effect makes
// for it live here too. Main thread only.
class Drawing {
 public:
  // A pane of this size in the panel's grey.
  Drawing(Findings& findings, int width, int height);
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  [[nodiscard]] const World& pane() const { return pane_; }
  [[nodiscard]] const std::vector<DrawnImage>& images() const { return drawn_; }

  // Three references to one drawing, none of which is taken for another.
  [[nodiscard]] DRAWBOT_DrawRef reference() { return reinterpret_cast<DRAWBOT_DrawRef>(&marks_[0]); }
  [[nodiscard]] DRAWBOT_SupplierRef supplier() { return reinterpret_cast<DRAWBOT_SupplierRef>(&marks_[1]); }
  [[nodiscard]] DRAWBOT_SurfaceRef surface() { return reinterpret_cast<DRAWBOT_SurfaceRef>(&marks_[2]); }

  // The pixels are read when the image is drawn: until then they are the effect's to keep.
  struct Image {
    int width, height, rowBytes;
    DRAWBOT_PixelLayout layout;
    const unsigned char* pixels;
  };
  DRAWBOT_ImageRef newImage(const Image& image);
  // False, and recorded, for what is no image, or was released.
  bool draw(DRAWBOT_ImageRef image, const DRAWBOT_PointF32& origin, float opacity);
  bool release(DRAWBOT_ObjectRef object);

  // At the event's end: records what was not released.
  void checkEnd();

 private:
  const Image* find(const void* object) const;

  Findings& findings_;
  World pane_;
  std::vector<DrawnImage> drawn_;
  std::map<const void*, std::unique_ptr<Image>> objects_;
  char marks_[3] = {};
};

}  // namespace quiltor::standalone
