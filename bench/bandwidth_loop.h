#pragma once

#include <cstddef>
#include <cstring>
#include <thread>
#include <vector>

namespace quiltor::bench {

// Moves bytes between the cores and memory: copies half as many as it is to move, on all cores.
class BandwidthLoop {
 public:
  BandwidthLoop(double bytes, int threads)
      : from_(static_cast<std::size_t>(bytes / 2 / threads), 1), to_(static_cast<std::size_t>(threads), from_) {}

  void run() {
    std::vector<std::jthread> threads;
    for (auto& to : to_) threads.emplace_back([&] { std::memcpy(to.data(), from_.data(), to.size()); });
  }

 private:
  std::vector<char> from_;
  std::vector<std::vector<char>> to_;
};

}  // namespace quiltor::bench
