#include "standalone/host/masks/feather.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quiltor::standalone {
namespace {

// The area under a line of coverage from its start to any place on it.
class RunningArea {
 public:
  explicit RunningArea(std::span<const float> line) : sums_(line.size() + 1) {
    for (std::size_t i = 0; i < line.size(); ++i) sums_[i + 1] = sums_[i] + static_cast<double>(line[i]);
  }

  [[nodiscard]] double upTo(double place) const {
    const double inside = std::clamp(place, 0.0, static_cast<double>(sums_.size() - 1));
    const auto before = static_cast<std::size_t>(inside);
    if (before + 1 == sums_.size()) return sums_[before];
    return sums_[before] + (inside - static_cast<double>(before)) * (sums_[before + 1] - sums_[before]);
  }

 private:
  std::vector<double> sums_;
};

void average(std::span<float> line, double width) {
  const RunningArea area(line);
  for (std::size_t i = 0; i < line.size(); ++i) {
    const double centre = static_cast<double>(i) + 0.5;
    const double mean = (area.upTo(centre + width / 2) - area.upTo(centre - width / 2)) / width;
    // The sums' last bits may reach beyond.
    line[i] = static_cast<float>(std::clamp(mean, 0.0, 1.0));
  }
}

}  // namespace

int featherReach(double feather) { return feather > 0 ? static_cast<int>(std::ceil(feather / 2)) + 1 : 0; }

void featherLine(std::span<float> line, double feather) {
  if (!(feather > 0)) return;
  // Two averages of half the width make one ramp of the whole width without corners.
  average(line, feather / 2);
  average(line, feather / 2);
}

}  // namespace quiltor::standalone
