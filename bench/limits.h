#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace quiltor::bench {

// A figure that is not to be above its limit.
struct Limit {
  std::string what, format, size;
  double measured = 0;
  std::string unit;  // "x" for a ratio
  double limit = 0;
};

// The figures of a run beside their limits, printed as they come.
class Limits {
 public:
  explicit Limits(bool print) : print_(print) {}

  void add(const Limit& limit);
  const nlohmann::json& results() const { return results_; }

 private:
  bool print_;
  nlohmann::json results_ = nlohmann::json::array();
};

}  // namespace quiltor::bench
