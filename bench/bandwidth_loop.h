#pragma once

#include <cstddef>
#include <cstring>
#include <thread>
#include <vector>

namespace quiltor::bench {

// Moves bytes between the cores and memory: copies half as many as it is to move, on all cores, each from memory of its
// own, so that none finds in a shared cache what another has read.
class BandwidthLoop {
 public:
  BandwidthLoop(double bytes, int threads)
      : from_(static_cast<std::size_t>(threads), std::vector<char>(static_cast<std::size_t>(bytes / 2 / threads), 1)),
        to_(from_) {}

  void run() {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < to_.size(); ++i) {
      threads.emplace_back([&from = from_[i], &to = to_[i]] { std::memcpy(to.data(), from.data(), to.size()); });
    }
  }

 private:
  std::vector<std::vector<char>> from_, to_;
};

}  // namespace quiltor::bench
