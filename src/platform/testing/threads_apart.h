#pragma once

#include <mutex>
#include <thread>

namespace quiltor {

// How often two threads got through a lock that is theirs in turn, out of kTurnsApart; fewer when they met inside.
inline constexpr int kTurnsApart = 4000;

template <class Mutex>
int turnsApart(Mutex& mutex) {
  int visits = 0;
  const auto visitOften = [&] {
    for (int turn = 0; turn < kTurnsApart / 2; ++turn) {
      const std::lock_guard lock(mutex);
      const int before = visits;
      std::this_thread::yield();
      visits = before + 1;
    }
  };
  std::thread other(visitOften);
  visitOften();
  other.join();
  return visits;
}

}  // namespace quiltor
