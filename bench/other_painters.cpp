#include "bench/other_painters.h"

#include <utility>

namespace quiltor::bench {

std::vector<std::unique_ptr<OtherPainter>> otherPainters(const standalone::World& layer,
                                                         const standalone::World& pattern) {
  std::vector<std::unique_ptr<OtherPainter>> painters;
  painters.push_back(cairoPainter(layer, pattern));
  if (auto painter = openCvPainter(layer, pattern)) painters.push_back(std::move(painter));
  return painters;
}

}  // namespace quiltor::bench
