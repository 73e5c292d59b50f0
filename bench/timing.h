#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace quiltor::bench {

template <class Work>
double millisecondsOf(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace quiltor::bench
