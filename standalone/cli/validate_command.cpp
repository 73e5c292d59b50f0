#include "standalone/cli/validate_command.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/temporary_folder.h"
#include "standalone/host/effect_module.h"
#include "standalone/validate/child_process.h"
#include "standalone/validate/validation.h"

namespace quiltor::standalone {
namespace {

using Reports = std::vector<CheckReport>;

void requireKnown(const std::vector<std::string>& names) {
  std::vector<std::string> known;
  for (const Check& check : allChecks()) known.push_back(check.name);
  for (const std::string& name : names) {
    if (findCheck(name)) continue;
    const std::string near = suggestion(name, known);
    throw UsageError("--check: \"" + printable(name) + "\": no such check" +
                     (near.empty() ? "; --list names them" : near));
  }
}

void printList(std::ostream& out) {
  for (const Check& check : allChecks()) out << std::left << std::setw(40) << check.name << check.text << '\n';
}

void printLine(const CheckReport& report, std::ostream& out) {
  out << std::left << std::setw(15) << nameOf(report.verdict) << std::setw(40) << report.name;
  if (report.why.empty()) {
    out << counted(report.trials, "trial");
  } else {
    // The first problem is usually the cause of the others; what ended the check is told last.
    const bool ended = report.verdict == Verdict::Crashed || report.verdict == Verdict::TimedOut;
    out << printable(ended ? report.why.back() : report.why.front());
    if (report.why.size() > 1) out << "; " << counted(report.why.size() - 1, "other problem");
  }
  out << '\n' << std::flush;
}

bool anyBad(const Reports& reports) {
  return std::any_of(reports.begin(), reports.end(), [](const CheckReport& report) { return report.bad(); });
}

void printSum(const Reports& reports, std::ostream& out) {
  std::map<Verdict, std::size_t> counts;
  std::size_t trials = 0;
  for (const CheckReport& report : reports) {
    ++counts[report.verdict];
    trials += report.trials;
  }
  out << counted(reports.size(), "check") << " with " << counted(trials, "trial");
  const char* separator = ": ";
  for (const auto& [verdict, count] : counts) {
    out << separator << count << ' ' << nameOf(verdict);
    separator = ", ";
  }
  out << '\n';
  if (anyBad(reports)) out << "--json lists every problem\n";
}

void printJson(const std::filesystem::path& module, const Reports& reports, std::ostream& out) {
  nlohmann::ordered_json checks = nlohmann::ordered_json::array();
  for (const CheckReport& report : reports) {
    checks.push_back({{"name", report.name},
                      {"rule", report.text},
                      {"verdict", nameOf(report.verdict)},
                      {"why", report.why},
                      {"trials", report.trials},
                      {"seconds", report.seconds}});
  }
  const nlohmann::ordered_json all{{"module", utf8FromPath(module)}, {"passed", !anyBad(reports)}, {"checks", checks}};
  // Texts of an effect may be of any encoding.
  out << all.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

Reports runHere(const ValidateOptions& options, const std::filesystem::path& module) {
  Reports reports;
  for (const std::string& name : options.checks) {
    reports.push_back(runCheckHere(module, *findCheck(name), options.result));
  }
  return reports;
}

}  // namespace

bool runValidate(const ValidateOptions& options, std::ostream& out) {
  requireKnown(options.checks);
  if (options.list) {
    printList(out);
    return true;
  }
  const std::filesystem::path module = options.module.empty() ? defaultModulePath() : options.module;
  if (options.inProcess && options.checks.size() != 1) {
    throw UsageError("--in-process: expected one --check with it, since a crash ends it");
  }
  Reports reports;
  if (options.inProcess) {
    reports = runHere(options, module);
    if (!options.result.empty()) return true;
    if (!options.json) {
      for (const std::string& why : reports.front().why) out << printable(why) << '\n';
    }
  } else {
    const TemporaryFolder folder;
    const auto limit = std::chrono::milliseconds(static_cast<std::int64_t>(options.timeLimit * 1000));
    reports = validate(
        {.module = module, .program = ownProgram(), .folder = folder.path(), .only = options.checks, .limit = limit},
        [&](const CheckReport& report) {
          if (!options.json) printLine(report, out);
        });
  }
  if (options.json) {
    printJson(module, reports, out);
  } else {
    printSum(reports, out);
  }
  return !anyBad(reports);
}

}  // namespace quiltor::standalone
