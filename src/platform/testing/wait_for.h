#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace quiltor {

// Longer than any machine is busy with something else, and shorter than a test may take.
inline constexpr std::chrono::minutes kLongPatience{4};

// Waits until a condition holds that another thread or process brings about, and goes on at once. False when it still
// does not hold after so long.
inline bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds patience = kLongPatience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

}  // namespace quiltor
