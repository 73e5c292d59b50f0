#pragma once

#include <functional>
#include <string>
#include <vector>

#include "standalone/host/call.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"

namespace quiltor::standalone {

// One run of a check: what it tries, and what it found wrong. Main thread only.
class CheckRun {
 public:
  // `progress` is told what is going on, for whoever reads of a crash.
  explicit CheckRun(const EffectModule& module, std::function<void(const std::string&)> progress = nullptr);

  [[nodiscard]] const EffectModule& module() const { return module_; }
  // A host with three masks, 3, 7 and 8, whose trace says which call the effect is in.
  [[nodiscard]] HostOptions hostOptions();

  // What follows is one more trial, under these circumstances; problems name them.
  void trial(std::string circumstances);
  void fail(const std::string& problem);
  bool require(bool holds, const std::string& problem);
  // The call was answered with success; otherwise a problem.
  bool requireSuccess(const CallResult& result, const std::string& doing);
  // Everything that the host found becomes a problem.
  void takeFindings(Findings& findings);
  // The effect does not say that it can do what the check is about.
  void notApplicable(std::string why) { inapplicability_ = std::move(why); }

  [[nodiscard]] const std::vector<std::string>& problems() const { return problems_; }
  [[nodiscard]] std::size_t trials() const { return trials_; }
  // Empty when the check applies.
  [[nodiscard]] const std::string& inapplicability() const { return inapplicability_; }

 private:
  void tell() const;

  const EffectModule& module_;
  std::function<void(const std::string&)> progress_;
  std::string circumstances_;
  std::string selector_;
  std::vector<std::string> problems_;
  std::size_t trials_ = 0;
  std::string inapplicability_;
};

// A rule that effects have to keep.
struct Check {
  std::string name;  // lower-case words and hyphens
  std::string text;  // the rule, in one sentence
  std::function<void(CheckRun&)> run;
};

// The name of the first, which only loads the module.
inline constexpr const char* kLoads = "loads";

// All of them, in the order of an effect's life.
[[nodiscard]] const std::vector<Check>& allChecks();

// The families that `allChecks` puts together.
[[nodiscard]] std::vector<Check> lifeChecks();
[[nodiscard]] std::vector<Check> instanceChecks();
[[nodiscard]] std::vector<Check> frameChecks();
[[nodiscard]] std::vector<Check> parameterChecks();
[[nodiscard]] std::vector<Check> smartChecks();
[[nodiscard]] std::vector<Check> threadChecks();
[[nodiscard]] std::vector<Check> refusalChecks();

}  // namespace quiltor::standalone
