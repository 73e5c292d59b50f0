#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace quiltor {

// Longer than a machine is busy with something else.
inline constexpr std::chrono::seconds kLongPatience{30};

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
