#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace quiltor::render_tests {

// What several processes tell one another about their renders.
struct Turns {
  std::atomic<int> arrivals = 0;   // processes that came to where they wait for a turn
  std::atomic<int> inside = 0;     // processes inside a render at this moment
  std::atomic<int> meetings = 0;   // how often one entered while another was inside
  std::atomic<int> finished = 0;   // renders that came to their end
  std::atomic<int> handovers = 0;  // how often a render was another process's than the one before it
  std::atomic<int64_t> lastProcess = 0;

  void enter() {
    if (inside.fetch_add(1) != 0) ++meetings;
    if (lastProcess.exchange(getpid()) != getpid()) ++handovers;
  }
  void leave() {
    inside.fetch_sub(1);
    ++finished;
  }
};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<int64_t>::is_always_lock_free);

// The record in a file that all of them map. A new file holds a fresh record of zeros.
class CommonTurns {
 public:
  explicit CommonTurns(const std::string& file) {
    const int descriptor = open(file.c_str(), O_RDWR | O_CREAT, 0600);
    const bool sized = descriptor >= 0 && ftruncate(descriptor, sizeof(Turns)) == 0;
    memory_ = sized ? mmap(nullptr, sizeof(Turns), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0) : MAP_FAILED;
    if (descriptor >= 0) close(descriptor);
    if (memory_ == MAP_FAILED) throw std::runtime_error("cannot share " + file);
  }
  ~CommonTurns() { munmap(memory_, sizeof(Turns)); }
  CommonTurns(const CommonTurns&) = delete;
  CommonTurns& operator=(const CommonTurns&) = delete;

  Turns* operator->() const { return static_cast<Turns*>(memory_); }

 private:
  void* memory_;
};

}  // namespace quiltor::render_tests
