#include "standalone/cli/pattern_choice.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "library/files/file_exists.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/pattern_report.h"
#include "standalone/cli/quiet_output.h"

namespace quiltor::standalone {
namespace {

constexpr std::size_t kMostListed = 12;

std::optional<std::size_t> parseIndex(std::string_view text) {
  std::size_t index = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return index;
}

// `#0 "Bricks", #3 "Waves" and 5 more`.
std::string listed(const PsPatterns& patterns, const std::vector<std::size_t>& indices) {
  std::string text;
  for (std::size_t i = 0; i < std::min(indices.size(), kMostListed); ++i) {
    const std::string& name = patterns[indices[i]]->name;
    text += i == 0 ? "#" : ", #";
    text += std::to_string(indices[i]);
    if (!name.empty()) text.append(" ").append(quotedName(name));
  }
  if (indices.size() > kMostListed) text += " and " + std::to_string(indices.size() - kMostListed) + " more";
  return text;
}

std::string listed(const PsPatterns& patterns) {
  std::vector<std::size_t> all(patterns.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
  return listed(patterns, all);
}

class Chooser {
 public:
  explicit Chooser(const PatternChoice& choice) : choice_(choice), file_(readQuietly(choice.file)) {}

  PsPattern choose() {
    if (file_.patterns.empty()) failUnread();
    if (!choice_.choice) return takeOnly();
    const std::string& wanted = *choice_.choice;
    const auto index = parseIndex(wanted);
    if (index && *index < file_.patterns.size()) return take(*index);
    for (const bool exactly : {true, false}) {
      const std::vector<std::size_t> named = thoseNamed(wanted, exactly);
      if (named.size() == 1) return take(named.front());
      if (named.size() > 1) fail("several patterns have the name " + quoted(wanted) + ": " + listed(patterns(), named));
    }
    if (index) fail("there is no pattern #" + wanted + "; expected one of " + listed(patterns()));
    failUnknown(wanted);
  }

 private:
  static PatternsOfFile readQuietly(const std::string& path) {
    const QuietOutput quiet;
    return readPatterns(path);
  }

  const PsPatterns& patterns() const { return file_.patterns; }

  [[noreturn]] void fail(const std::string& problem) const {
    throw UsageError("--pattern: " + choice_.file + ": " + problem);
  }

  [[noreturn]] void failUnread() const {
    const std::vector<std::string> failures = describeFailures(file_.report, file_.refused);
    throw CommandFailure(choice_.file + ": " + (failures.empty() ? "it holds no patterns" : failures.front()));
  }

  [[noreturn]] void failUnknown(const std::string& wanted) const {
    for (const auto& failure : file_.report.failures) {
      if (!sameName(failure.name, wanted)) continue;
      throw CommandFailure(choice_.file + ": " + describePlace(failure.place, failure.name) + ": " + failure.reason);
    }
    std::vector<std::string> names;
    for (const auto& pattern : patterns()) names.push_back(pattern->name);
    std::string near = suggestion(wanted, names);
    if (near.empty()) near = "; expected one of " + listed(patterns());
    fail("there is no pattern " + quoted(wanted) + near);
  }

  std::vector<std::size_t> thoseNamed(const std::string& name, bool exactly) const {
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < patterns().size(); ++i) {
      const std::string& candidate = patterns()[i]->name;
      if (exactly ? candidate == name : sameName(candidate, name)) indices.push_back(i);
    }
    return indices;
  }

  PsPattern takeOnly() {
    if (patterns().size() > 1) {
      fail("it holds " + counted(patterns().size(), "pattern") +
           ", choose one by number or name: " + listed(patterns()));
    }
    return take(0);
  }

  PsPattern take(std::size_t index) {
    if (patterns()[index]->pixels.empty()) {
      throw CommandFailure(choice_.file + ": pattern #" + std::to_string(index) + " has no pixels");
    }
    return std::move(*file_.patterns[index]);
  }

  const PatternChoice& choice_;
  PatternsOfFile file_;
};

}  // namespace

std::optional<PatternChoice> parsePatternChoice(const std::string& text) {
  if (endsAsPatternFile(text)) return PatternChoice{text, std::nullopt};
  if (fileExists(text)) return std::nullopt;
  std::optional<PatternChoice> first;
  for (std::size_t mark = text.find('#'); mark != std::string::npos; mark = text.find('#', mark + 1)) {
    PatternChoice choice{text.substr(0, mark), text.substr(mark + 1)};
    if (!endsAsPatternFile(choice.file)) continue;
    if (fileExists(choice.file)) return choice;
    if (!first) first = std::move(choice);
  }
  return first;
}

PsPattern choosePattern(const PatternChoice& choice) { return Chooser(choice).choose(); }

}  // namespace quiltor::standalone
