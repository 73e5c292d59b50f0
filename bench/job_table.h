#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/frame_runner.h"
#include "bench/frame_size.h"

namespace quiltor::bench {

// What the jobs take, beside a loop that moves the same bytes, the plain reference and, for J2 in 8 bits, graphics
// libraries: a frame of each in turns.
class JobTable {
 public:
  explicit JobTable(bool print) : print_(print) {}

  void measure(FrameRunner& runner, const std::string& name, const std::string& format, const FrameSize& size,
               int frames);
  const nlohmann::json& results() const { return results_; }

 private:
  void print(const nlohmann::json& row) const;

  bool print_;
  nlohmann::json results_ = nlohmann::json::array();
};

}  // namespace quiltor::bench
