#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

#include "bench/other_painters.h"

namespace quiltor::bench {
namespace {

using standalone::World;

class CairoPainter : public OtherPainter {
 public:
  CairoPainter(const World& layer, const World& pattern)
      : target_(surfaceOf(layer)), layer_(surfaceOf(layer)), pattern_(surfaceOf(pattern)) {}
  ~CairoPainter() override {
    for (cairo_surface_t* surface : {target_, layer_, pattern_}) cairo_surface_destroy(surface);
  }
  CairoPainter(const CairoPainter&) = delete;
  CairoPainter& operator=(const CairoPainter&) = delete;

  std::string name() const override { return "Cairo"; }

  void draw() override {
    cairo_t* const context = cairo_create(target_);
    cairo_set_source_surface(context, layer_, 0, 0);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
    cairo_translate(context, cairo_image_surface_get_width(target_) / 2.0,
                    cairo_image_surface_get_height(target_) / 2.0);
    cairo_rotate(context, std::numbers::pi / 6);
    cairo_scale(context, 0.73, 0.73);
    cairo_set_source_surface(context, pattern_, -cairo_image_surface_get_width(pattern_) / 2.0,
                             -cairo_image_surface_get_height(pattern_) / 2.0);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BILINEAR);
    cairo_set_operator(context, CAIRO_OPERATOR_MULTIPLY);
    cairo_paint_with_alpha(context, 0.7);
    cairo_destroy(context);
    cairo_surface_flush(target_);
  }

 private:
  // Opaque pixels are the same with and without their alpha multiplied in.
  static cairo_surface_t* surfaceOf(const World& world) {
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, world.width(), world.height());
    for (int y = 0; y < world.height(); ++y) {
      const unsigned char* argb = world.row(y);
      unsigned char* pixel = cairo_image_surface_get_data(surface) +
                             static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface);
      for (int x = 0; x < world.width(); ++x, argb += 4, pixel += 4) {
        const uint32_t word = uint32_t{argb[0]} << 24 | uint32_t{argb[1]} << 16 | uint32_t{argb[2]} << 8 | argb[3];
        std::memcpy(pixel, &word, sizeof word);
      }
    }
    cairo_surface_mark_dirty(surface);
    return surface;
  }

  cairo_surface_t* target_;
  cairo_surface_t* layer_;
  cairo_surface_t* pattern_;
};

}  // namespace

std::unique_ptr<OtherPainter> cairoPainter(const World& layer, const World& pattern) {
  return std::make_unique<CairoPainter>(layer, pattern);
}

}  // namespace quiltor::bench
