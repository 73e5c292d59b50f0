#pragma once

#include <cstddef>

namespace quiltor {

// Memory for a moment, in the largest pages that the system gives for the asking: with small ones the system's work on
// a frame's worth of fresh pages takes longer than the frame. The content is not defined.
class LargeMemory {
 public:
  // Throws std::bad_alloc.
  explicit LargeMemory(std::size_t bytes);
  ~LargeMemory();
  LargeMemory(const LargeMemory&) = delete;
  LargeMemory& operator=(const LargeMemory&) = delete;

  // Aligned for every vector.
  void* get() const { return memory_; }

 private:
  void* memory_ = nullptr;
  void* mapping_ = nullptr;
  [[maybe_unused]] std::size_t mappingBytes_ = 0;  // not every system asks for it again
};

}  // namespace quiltor
