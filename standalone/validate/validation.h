#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "standalone/validate/check.h"

namespace quiltor::standalone {

enum class Verdict { Passed, Failed, Crashed, TimedOut, NotApplicable };

[[nodiscard]] std::string nameOf(Verdict verdict);  // "passed", "timed out"

// A line of the report.
struct CheckReport {
  std::string name, text;
  Verdict verdict = Verdict::Passed;
  std::vector<std::string> why = {};  // empty when passed
  std::size_t trials = 0;
  double seconds = 0;

  [[nodiscard]] bool bad() const { return verdict != Verdict::Passed && verdict != Verdict::NotApplicable; }
};

struct ValidationOptions {
  std::filesystem::path module = {};
  std::filesystem::path program = {};  // what runs a check: the program that calls `runCheckHere` when it is told to
  std::filesystem::path folder = {};   // a new one, for the files by which the processes speak
  std::vector<std::string> only = {};  // the names of the checks to run; empty: all
  std::chrono::milliseconds limit{60000};  // of one check
};

// Runs each check in a process of its own, so that neither a crash nor a hang ends the others. `each` gets every report
// as it comes. When the module cannot be loaded the first report is the only one. The program is called as PROGRAM
// validate --plugin MODULE --in-process --check NAME --result FOLDER. Throws std::runtime_error when it cannot be run.
std::vector<CheckReport> validate(const ValidationOptions& options,
                                  const std::function<void(const CheckReport&)>& each = nullptr);

// Runs one check in this process. With a folder its progress and result go there. A module
// that cannot be loaded is a problem of the check.
CheckReport runCheckHere(const std::filesystem::path& module, const Check& check, const std::filesystem::path& folder);

// Null when there is none of that name.
[[nodiscard]] const Check* findCheck(const std::string& name);

}  // namespace quiltor::standalone
