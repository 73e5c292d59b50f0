#include "bench/other_painters.h"

#ifdef QUILTOR_BENCH_OPENCV

#include <cmath>
#include <numbers>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace quiltor::bench {
namespace {

using standalone::World;

class OpenCvPainter : public OtherPainter {
 public:
  OpenCvPainter(const World& layer, const World& pattern) : layer_(imageOf(layer)) {
    // Behind its last column and row the pattern begins again.
    cv::copyMakeBorder(imageOf(pattern), pattern_, 0, 1, 0, 1, cv::BORDER_WRAP);
    cv::Mat places(layer.height(), layer.width(), CV_32FC2);
    const double angle = std::numbers::pi / 6, across = std::cos(angle) / 0.73, down = std::sin(angle) / 0.73;
    for (int y = 0; y < layer.height(); ++y) {
      for (int x = 0; x < layer.width(); ++x) {
        const double u = x - layer.width() / 2, v = y - layer.height() / 2;
        places.at<cv::Vec2f>(y, x) = {folded(across * u + down * v, pattern.width()),
                                      folded(across * v - down * u, pattern.height())};
      }
    }
    // As many bits behind the point as the library samples with.
    cv::convertMaps(places, cv::Mat(), places_, fractions_, CV_16SC2);
  }

  std::string name() const override { return "OpenCV"; }

  void draw() override {
    cv::remap(pattern_, sampled_, places_, fractions_, cv::INTER_LINEAR);
    cv::multiply(layer_, sampled_, multiplied_, 1 / 255.0);
    cv::addWeighted(layer_, 0.3, multiplied_, 0.7, 0, result_);
  }

 private:
  // A copy; the order of the channels does not matter here.
  static cv::Mat imageOf(const World& world) {
    return cv::Mat(world.height(), world.width(), CV_8UC4, world.packed().data()).clone();
  }

  static float folded(double place, int size) {
    const double centred = place + size / 2;
    return static_cast<float>(centred - size * std::floor(centred / size));
  }

  cv::Mat layer_, pattern_, places_, fractions_, sampled_, multiplied_, result_;
};

}  // namespace

std::unique_ptr<OtherPainter> openCvPainter(const World& layer, const World& pattern) {
  return std::make_unique<OpenCvPainter>(layer, pattern);
}

}  // namespace quiltor::bench

#else

namespace quiltor::bench {

std::unique_ptr<OtherPainter> openCvPainter(const standalone::World&, const standalone::World&) { return nullptr; }

}  // namespace quiltor::bench

#endif
