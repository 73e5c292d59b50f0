#include "bench/program_start.h"

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/timing.h"
#include "standalone/validate/child_process.h"

namespace quiltor::bench {

void limitProgramStart(const char* program, int times, Limits& limits) {
  std::vector<double> elapsed;
  for (int i = 0; i < times; ++i) {
    elapsed.push_back(millisecondsOf([&] {
      const auto end = standalone::runProcess(program, {"params"}, std::chrono::minutes(1));
      if (end.kind != standalone::ProcessEnd::Kind::Exited || end.status != 0) {
        throw std::runtime_error(std::string(program) + " params failed");
      }
    }));
  }
  limits.add({"quiltor params, from start to end", "", "", median(elapsed), "ms", 50});
}

}  // namespace quiltor::bench
