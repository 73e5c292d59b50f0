#include "standalone/cli/pattern_report.h"

#include <algorithm>

#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"

namespace quiltor::standalone {

PatternsOfFile readPatterns(const std::string& path) {
  PatternsOfFile file;
  file.refused = loadPatternFile(path, file.patterns, &file.report) != 0;
  return file;
}

std::string describePlace(std::size_t place, std::string_view name) {
  std::string text = ordinal(place + 1) + " pattern";
  if (!name.empty()) text.append(" ").append(quotedName(name));
  return text;
}

std::vector<std::size_t> placesOf(const PatternsOfFile& file) {
  std::vector<std::size_t> places;
  auto failure = file.report.failures.begin();
  for (std::size_t place = 0; places.size() < file.patterns.size(); ++place) {
    if (failure != file.report.failures.end() && failure->place == place) {
      ++failure;
    } else {
      places.push_back(place);
    }
  }
  return places;
}

std::vector<std::string> describeFailures(const PatternFileReport& report, bool refused) {
  std::vector<std::string> texts;
  for (const auto& failure : report.failures) {
    texts.push_back(describePlace(failure.place, failure.name) + ": " + failure.reason);
  }
  if (report.problem) {
    texts.push_back((refused ? "" : "the rest of it is not read: ") + std::string(report.problem));
  }
  return texts;
}

bool endsAsPatternFile(std::string_view path) {
  constexpr std::string_view kEnding = ".pat";
  return path.size() >= kEnding.size() && sameName(path.substr(path.size() - kEnding.size()), kEnding);
}

}  // namespace quiltor::standalone
