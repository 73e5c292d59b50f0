#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "render/kernels/pixel_run.h"

// A tent blur at a cost that does not depend on its radius. Colours are counted in fixed steps, so that the sums that
// run along a line of pixels are exact: a pixel's sum does not depend on where the sum began, and every instruction set
// and every division of the work gives the same bits.
namespace quiltor {

// A sum is below the square of the largest radius times the largest colour, which 53 bits hold.
inline constexpr int32_t kLargestExactRadius = 1024;
inline constexpr float kColourSteps = 0x1p27f;      // to one
inline constexpr float kLargestExactColour = 2.0f;  // exclusive

// What brings the sums of a tent filter along a line of pixels back to a colour. The weights fall by 1 a pixel from the
// radius at the centre; taps outside the line are dropped and what is left is normalised, so that an edge neither
// darkens nor wraps.
class TentScale {
 public:
  // radius at least 1, length the line's number of pixels.
  TentScale(int32_t radius, int32_t length);

  int32_t radius() const { return radius_; }
  // 1 / the sum of the weights that lie on the line.
  double at(int32_t position) const { return scales_[static_cast<size_t>(position)]; }
  const double* data() const { return scales_.data(); }

 private:
  int32_t radius_;
  std::vector<double> scales_;
};

// The horizontally blurred colours of a frame in steps, channel by channel within a row.
class BlurScratch {
 public:
  static size_t bytes(int32_t width, int32_t height);
  // memory holds that many bytes and outlives this.
  BlurScratch(int32_t width, int32_t height, void* memory);

  int32_t width() const { return width_; }
  int32_t height() const { return height_; }
  // A row of one channel; it can be read and written in whole runs.
  int32_t* plane(int32_t channel, int32_t y) { return steps_ + offset(channel, y); }
  const int32_t* plane(int32_t channel, int32_t y) const { return steps_ + offset(channel, y); }

 private:
  size_t offset(int32_t channel, int32_t y) const {
    return (static_cast<size_t>(y) * 3 + static_cast<size_t>(channel)) * planeWidth_;
  }

  int32_t width_, height_;
  size_t planeWidth_;
  int32_t* steps_;
};

// One row of colours in steps, with the blank margins that the filter reaches into.
class BlurLine {
 public:
  BlurLine(int32_t width, int32_t radius);

  // Takes a run of count pixels from column x on. False when a colour is not below kLargestExactColour in magnitude.
  [[nodiscard]] bool take(const PixelRun& run, int32_t x, size_t count);
  // Blurs the row into row y of the scratch.
  void blurAcross(const TentScale& scale, int32_t y, BlurScratch& scratch) const;

 private:
  int32_t width_, radius_;
  std::vector<int32_t> steps_;  // four to a pixel, the last one 0
};

// A run of columns at a row of the scratch.
struct ColumnsPlace {
  const BlurScratch& scratch;
  int32_t radius, x, y;
  size_t count;

  // The row of a channel, or null outside the frame.
  const int32_t* row(int32_t channel, int32_t at) const {
    return at >= 0 && at < scratch.height() ? scratch.plane(channel, at) + x : nullptr;
  }
};

// A run of columns on its way down the scratch.
class BlurColumns {
 public:
  // The sums of count columns from x on, at row y.
  BlurColumns(const BlurScratch& scratch, const TentScale& scale, int32_t x, size_t count, int32_t y);

  // The blurred colours of the row where the sums stand; goes on to the next one.
  void next(PixelRun& out);

  // For the kernels: sums of weighted colours and their change to the next row, channel after channel.
  struct Sums {
    alignas(64) double tent[3 * PixelRun::kLength];
    alignas(64) double change[3 * PixelRun::kLength];
  };

 private:
  ColumnsPlace place_;
  const TentScale& scale_;
  Sums sums_;
};

}  // namespace quiltor
