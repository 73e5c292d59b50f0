#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quiltor::standalone {

// Which control a step means: `iconbutton#3`, `"OK"`, `button"Set"#2`, `@row_0`. Kind, text and name narrow it; the
// number counts those that remain, from 1.
struct ControlSelector {
  std::string kind;
  std::optional<std::string> text;
  std::string name;
  int number = 1;
};

// A word of a step; a quoted one keeps its blanks and knows `\"`, `\\` and `\n`.
struct StepWord {
  std::string text;       // as it was meant
  std::string raw;        // as it was written
  bool isQuoted = false;  // all of it
};

struct AutomationStep {
  int line = 0;  // from 1
  std::string verb;
  std::vector<StepWord> words;  // after the verb
};

// Steps, one a line; empty lines and lines that start with "#" are left out. README.md in this folder has the language.
// Throws AutomationError, with the line, for a quote that does not end.
[[nodiscard]] std::vector<AutomationStep> parseAutomation(const std::string& text);

// Throws AutomationError for what is no selector.
[[nodiscard]] ControlSelector parseSelector(const std::string& raw);

}  // namespace quiltor::standalone
