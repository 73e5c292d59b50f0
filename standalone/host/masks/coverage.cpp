#include "standalone/host/masks/coverage.h"

#include <cairo.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

#include "standalone/host/masks/feather.h"

namespace quiltor::standalone {
namespace {

struct Destroy {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

using Surface = std::unique_ptr<cairo_surface_t, Destroy>;
using Context = std::unique_ptr<cairo_t, Destroy>;

void requireSuccess(cairo_status_t status) {
  // Nothing but memory, and sizes beyond any memory, can fail here.
  if (status != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
}

void trace(cairo_t* context, const Outline& outline) {
  cairo_move_to(context, outline.front().x, outline.front().y);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const PathVertex& from = outline[i];
    const PathVertex& to = outline[(i + 1) % outline.size()];
    const bool straight = from.outX == 0 && from.outY == 0 && to.inX == 0 && to.inY == 0;
    if (straight) {
      cairo_line_to(context, to.x, to.y);
    } else {
      cairo_curve_to(context, from.x + from.outX, from.y + from.outY, to.x + to.inX, to.y + to.inY, to.x, to.y);
    }
  }
  cairo_close_path(context);
}

Surface draw(const Outline& outline, int left, int top, int width, int height, bool antiAliased) {
  constexpr double kTolerance = 0.02;
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
  requireSuccess(cairo_surface_status(surface.get()));
  const Context context(cairo_create(surface.get()));
  cairo_translate(context.get(), -left, -top);
  cairo_set_tolerance(context.get(), kTolerance);
  cairo_set_antialias(context.get(), antiAliased ? CAIRO_ANTIALIAS_BEST : CAIRO_ANTIALIAS_NONE);
  if (!outline.empty()) trace(context.get(), outline);
  cairo_fill(context.get());
  requireSuccess(cairo_status(context.get()));
  cairo_surface_flush(surface.get());
  return surface;
}

}  // namespace

std::vector<float> coverageOf(const Outline& outline, const CoverageRequest& request) {
  if (request.width < 1 || request.height < 1) return {};
  const int reachX = featherReach(request.featherX);
  const int reachY = featherReach(request.featherY);
  const int drawnWidth = request.width + 2 * reachX;
  const int drawnHeight = request.height + 2 * reachY;
  const Surface surface =
      draw(outline, request.left - reachX, request.top - reachY, drawnWidth, drawnHeight, request.antiAliased);
  const unsigned char* const bytes = cairo_image_surface_get_data(surface.get());
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface.get());

  const auto width = static_cast<std::size_t>(request.width);
  const auto height = static_cast<std::size_t>(request.height);
  const auto rows = static_cast<std::size_t>(drawnHeight);
  std::vector<float> tall(width * rows);
  std::vector<float> row(static_cast<std::size_t>(drawnWidth));
  for (std::size_t y = 0; y < rows; ++y) {
    const unsigned char* const drawn = bytes + static_cast<std::ptrdiff_t>(y) * stride;
    std::transform(drawn, drawn + drawnWidth, row.begin(), [](unsigned char c) { return static_cast<float>(c) / 255; });
    featherLine(row, request.featherX);
    std::copy_n(row.begin() + reachX, width, tall.begin() + static_cast<std::ptrdiff_t>(y * width));
  }
  if (reachY == 0) return tall;

  std::vector<float> coverage(width * height);
  std::vector<float> column(rows);
  for (std::size_t x = 0; x < width; ++x) {
    for (std::size_t y = 0; y < rows; ++y) column[y] = tall[y * width + x];
    featherLine(column, request.featherY);
    for (std::size_t y = 0; y < height; ++y) coverage[y * width + x] = column[y + static_cast<std::size_t>(reachY)];
  }
  return coverage;
}

Outline scaled(Outline outline, double factorX, double factorY) {
  for (PathVertex& vertex : outline) {
    vertex = {vertex.x * factorX,   vertex.y * factorY,    vertex.inX * factorX,
              vertex.inY * factorY, vertex.outX * factorX, vertex.outY * factorY};
  }
  return outline;
}

}  // namespace quiltor::standalone
