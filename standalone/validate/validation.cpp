#include "standalone/validate/validation.h"

#include <algorithm>
#include <exception>
#include <optional>

#include "base/utf8_path.h"
#include "standalone/validate/child_process.h"
#include "standalone/validate/result_file.h"

namespace quiltor::standalone {
namespace {

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

CheckReport reportOf(const Check& check, const CheckOutcome& outcome) {
  CheckReport report{.name = check.name, .text = check.text, .trials = outcome.trials};
  report.why = outcome.problems;
  if (!outcome.problems.empty()) {
    report.verdict = Verdict::Failed;
  } else if (!outcome.inapplicability.empty()) {
    report.verdict = Verdict::NotApplicable;
    report.why = {outcome.inapplicability};
  }
  return report;
}

std::string where(const std::filesystem::path& folder) {
  const std::string progress = readProgress(folder);
  return progress.empty() ? "" : " " + progress;
}

CheckReport runInProcess(const ValidationOptions& options, const Check& check) {
  const std::filesystem::path folder = options.folder / pathFromUtf8(check.name);
  std::filesystem::create_directories(folder);
  const auto start = std::chrono::steady_clock::now();
  const ProcessEnd end = runProcess(options.program,
                                    {"validate", "--plugin", utf8FromPath(options.module), "--in-process", "--check",
                                     check.name, "--result", utf8FromPath(folder)},
                                    options.limit);
  const std::optional<CheckOutcome> outcome = readResult(folder);
  CheckReport report = reportOf(check, outcome.value_or(CheckOutcome{}));
  report.seconds = secondsSince(start);
  if (end.kind == ProcessEnd::Kind::TimedOut) {
    report.verdict = Verdict::TimedOut;
    report.why.push_back("no end after " + std::to_string(options.limit.count() / 1000) + " seconds" + where(folder));
  } else if (end.kind == ProcessEnd::Kind::Killed) {
    report.verdict = Verdict::Crashed;
    report.why.push_back(end.reason + where(folder));
  } else if (!outcome || end.status != 0) {
    report.verdict = Verdict::Crashed;
    report.why.push_back("the process ended with status " + std::to_string(end.status) +
                         (outcome ? " after the check" : where(folder)));
  }
  return report;
}

CheckOutcome outcomeHere(const std::filesystem::path& module, const Check& check,
                         const std::function<void(const std::string&)>& tell) {
  tell("while the module was loaded");
  try {
    const EffectModule loaded(module);
    CheckRun run(loaded, tell);
    try {
      check.run(run);
    } catch (const std::exception& failure) {
      run.fail(std::string("the host gave up: ") + failure.what());
    }
    return outcomeOf(run);
  } catch (const ModuleError& error) {
    return {.problems = {error.what()}};
  }
}

bool wanted(const ValidationOptions& options, const Check& check) {
  return options.only.empty() || std::find(options.only.begin(), options.only.end(), check.name) != options.only.end();
}

}  // namespace

std::string nameOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::Passed:
      return "passed";
    case Verdict::Failed:
      return "failed";
    case Verdict::Crashed:
      return "crashed";
    case Verdict::TimedOut:
      return "timed out";
    case Verdict::NotApplicable:
      break;
  }
  return "not applicable";
}

std::vector<CheckReport> validate(const ValidationOptions& options,
                                  const std::function<void(const CheckReport&)>& each) {
  std::vector<CheckReport> reports;
  for (const Check& check : allChecks()) {
    if (!wanted(options, check)) continue;
    reports.push_back(runInProcess(options, check));
    if (each) each(reports.back());
    // Nothing can be said of a module that cannot be loaded.
    if (check.name == kLoads && reports.back().bad()) break;
  }
  return reports;
}

CheckReport runCheckHere(const std::filesystem::path& module, const Check& check, const std::filesystem::path& folder) {
  const auto start = std::chrono::steady_clock::now();
  std::optional<ProgressFile> progress;
  if (!folder.empty()) progress.emplace(folder);
  const auto tell = [&](const std::string& line) {
    if (progress) progress->write(line);
  };
  const CheckOutcome outcome = outcomeHere(module, check, tell);
  if (!folder.empty()) writeResult(folder, outcome);
  CheckReport report = reportOf(check, outcome);
  report.seconds = secondsSince(start);
  return report;
}

const Check* findCheck(const std::string& name) {
  const auto& checks = allChecks();
  const auto found = std::find_if(checks.begin(), checks.end(), [&](const Check& check) { return check.name == name; });
  return found == checks.end() ? nullptr : &*found;
}

}  // namespace quiltor::standalone
