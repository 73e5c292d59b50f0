#include "bench/limits.h"

#include <cstdio>

namespace quiltor::bench {

void Limits::add(const Limit& limit) {
  const bool reached = limit.measured <= limit.limit;
  if (print_) {
    if (results_.empty())
      std::printf("\n%-52s %-4s %-10s %9s %12s\n", "what is held to a limit", "", "size", "", "limit");
    std::printf("%-52s %-4s %-10s %6.2f %-3s %8.4g %-3s  %s\n", limit.what.c_str(), limit.format.c_str(),
                limit.size.c_str(), limit.measured, limit.unit.c_str(), limit.limit, limit.unit.c_str(),
                reached ? "reached" : "missed");
    std::fflush(stdout);
  }
  results_.push_back({{"what", limit.what},
                      {"format", limit.format},
                      {"size", limit.size},
                      {"measured", limit.measured},
                      {"unit", limit.unit},
                      {"limit", limit.limit},
                      {"reached", reached}});
}

}  // namespace quiltor::bench
