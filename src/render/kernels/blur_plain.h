#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quiltor {

// The blur tap by tap, at a cost that grows with the radius: for colours and radii that the sums of blur.h do not hold.

// The weights of a tent filter along a line of pixels. The filter falls from 1 at its centre to 0 at its radius; taps
// outside the line are dropped and what is left is normalised, so an edge neither darkens nor wraps.
class PlainTentFilter {
 public:
  // radius at least 1, length the line's number of pixels.
  PlainTentFilter(int32_t radius, int32_t length);

  // The farthest tap that can lie on the line and has a weight.
  int32_t reach() const { return reach_; }
  // The weight of tap -reach() is at 0, of tap 0 at reach().
  const double* weights() const { return weights_.data(); }
  // 1 / the sum of the weights that lie on the line, for each position of it.
  const double* scales() const { return scales_.data(); }

 private:
  int32_t reach_;
  std::vector<double> weights_;
  std::vector<double> scales_;
};

// The part of a picture that is blurred: four floats a pixel, R, G, B, A, pitch pixels from one row to the next.
struct BlurFrame {
  float* pixels = nullptr;
  size_t pitch = 0;
  int32_t width = 0;
  int32_t height = 0;

  float* row(int32_t y) const { return pixels + static_cast<size_t>(y) * pitch * 4; }
};

// The horizontally blurred colours of a frame, between the two passes.
class PlainBlurScratch {
 public:
  PlainBlurScratch(int32_t width, int32_t height);

  // Floats from one row of a plane to the next; a plane's row can be written in whole vectors.
  size_t pitch() const { return 3 * planeWidth_; }
  float* plane(int32_t channel, int32_t y) {
    return colours_.data() + static_cast<size_t>(y) * pitch() + static_cast<size_t>(channel) * planeWidth_;
  }

 private:
  size_t planeWidth_;
  std::vector<float> colours_;
};

// The two passes of the blur over rows first .. end - 1. Sums are kept in 32 bits, weighted and scaled in 64. Alpha is
// left alone. The second pass reads rows of the scratch that other calls of the first have written.
void blurAcrossPlainly(const BlurFrame& frame, const PlainTentFilter& filter, int32_t first, int32_t end,
                       PlainBlurScratch& scratch);
void blurDownPlainly(PlainBlurScratch& scratch, const PlainTentFilter& filter, int32_t first, int32_t end,
                     const BlurFrame& frame);

}  // namespace quiltor
