#include "standalone/scripting/automation/automation_script.h"

#include <charconv>
#include <cstddef>
#include <sstream>
#include <utility>

#include "standalone/scripting/automation/automation_error.h"

namespace quiltor::standalone {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Reads a quoted part whose opening quote is at `at`, and steps over it.
std::string readQuoted(const std::string& line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size() && line[at] != '"'; ++at) {
    if (line[at] != '\\') {
      text += line[at];
    } else if (++at < line.size()) {
      text += line[at] == 'n' ? '\n' : line[at];
    }
  }
  if (at >= line.size()) throw AutomationError("a quoted text does not end");
  ++at;
  return text;
}

StepWord readWord(const std::string& line, std::size_t& at) {
  const std::size_t start = at;
  StepWord word;
  bool hasPlain = false;
  while (at < line.size() && !isBlank(line[at])) {
    if (line[at] == '"') {
      word.isQuoted = true;
      word.text += readQuoted(line, at);
    } else {
      hasPlain = true;
      word.text += line[at++];
    }
  }
  word.raw = line.substr(start, at - start);
  word.isQuoted = word.isQuoted && !hasPlain;
  return word;
}

std::vector<StepWord> readWords(const std::string& line) {
  std::vector<StepWord> words;
  for (std::size_t at = 0; at < line.size();) {
    if (isBlank(line[at])) {
      ++at;
    } else if (line[at] == '#' && words.empty()) {
      break;
    } else {
      words.push_back(readWord(line, at));
    }
  }
  return words;
}

}  // namespace

std::vector<AutomationStep> parseAutomation(const std::string& text) {
  std::vector<AutomationStep> steps;
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    try {
      std::vector<StepWord> words = readWords(line);
      if (words.empty()) continue;
      AutomationStep step{number, words.front().text, {}};
      step.words.assign(std::next(words.begin()), words.end());
      steps.push_back(std::move(step));
    } catch (const AutomationError& error) {
      throw AutomationError("line " + std::to_string(number) + ": " + error.what());
    }
  }
  return steps;
}

ControlSelector parseSelector(const std::string& raw) {
  const auto refuse = [&raw]() -> ControlSelector {
    throw AutomationError(raw + ": expected a control, such as \"OK\", iconbutton#3, button\"Set\"#2 or @name");
  };
  ControlSelector selector;
  std::size_t at = 0;
  const bool byName = raw.starts_with('@');
  if (byName) ++at;
  while (at < raw.size() && raw[at] != '"' && raw[at] != '#') (byName ? selector.name : selector.kind) += raw[at++];
  if (at < raw.size() && raw[at] == '"') selector.text = readQuoted(raw, at);
  if (at < raw.size()) {
    const char* const end = raw.data() + raw.size();
    const auto [stop, error] = std::from_chars(raw.data() + at + 1, end, selector.number);
    if (raw[at] != '#' || error != std::errc() || stop != end || selector.number < 1) return refuse();
  }
  if (selector.kind.empty() && selector.name.empty() && !selector.text) return refuse();
  return selector;
}

}  // namespace quiltor::standalone
