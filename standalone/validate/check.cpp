#include "standalone/validate/check.h"

#include <string_view>
#include <utility>

namespace quiltor::standalone {

CheckRun::CheckRun(const EffectModule& module, std::function<void(const std::string&)> progress)
    : module_(module), progress_(std::move(progress)) {}

HostOptions CheckRun::hostOptions() {
  HostOptions options;
  // An empty one too.
  options.masks = {
      {.id = 3, .vertices = {{1, 1}, {6, 2}, {3, 5}}, .featherX = 2},
      {.id = 7, .vertices = {{0, 0}, {9, 0}, {9, 9}, {0, 9}}, .featherX = 4, .featherY = 1, .inverted = true},
      {.id = 8}};
  options.trace = [this](std::string_view line) {
    constexpr std::string_view kCall = "call ";
    if (!line.starts_with(kCall)) return;
    selector_ = line.substr(kCall.size());
    tell();
  };
  return options;
}

void CheckRun::tell() const {
  if (!progress_) return;
  const std::string where = selector_.empty() ? "" : "in " + selector_;
  progress_(where + (where.empty() || circumstances_.empty() ? "" : ", ") + circumstances_);
}

void CheckRun::trial(std::string circumstances) {
  ++trials_;
  circumstances_ = std::move(circumstances);
  tell();
}

void CheckRun::fail(const std::string& problem) {
  problems_.push_back(circumstances_.empty() ? problem : problem + " (" + circumstances_ + ")");
}

bool CheckRun::require(bool holds, const std::string& problem) {
  if (!holds) fail(problem);
  return holds;
}

bool CheckRun::requireSuccess(const CallResult& result, const std::string& doing) {
  const std::string message = result.message();
  return require(result.succeeded(), doing + " was answered with " + std::to_string(result.code) +
                                         (message.empty() ? "" : ", \"" + message + "\""));
}

void CheckRun::takeFindings(Findings& findings) {
  for (const Finding& finding : findings.all()) fail(describe(finding));
  findings.clear();
}

const std::vector<Check>& allChecks() {
  static const std::vector<Check> checks = [] {
    std::vector<Check> all;
    for (const auto& family :
         {lifeChecks, instanceChecks, frameChecks, parameterChecks, smartChecks, threadChecks, refusalChecks}) {
      for (Check& check : family()) all.push_back(std::move(check));
    }
    return all;
  }();
  return checks;
}

}  // namespace quiltor::standalone
