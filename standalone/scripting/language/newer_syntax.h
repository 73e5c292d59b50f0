#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quiltor::standalone {

struct SyntaxFault {
  int line;  // from 1
  std::string text;
};

// The first thing in a script that its own host cannot read, though the engine here can: the host's language is that of
// the third edition of ECMAScript, of 1999. Finds let, const, class and arrow functions, templates, spreads, getters,
// reserved words as names, and commas before a closing bracket, and the two mixes of operators that the host groups in
// another way: && with || and a conditional in the middle of another.
[[nodiscard]] std::optional<SyntaxFault> findNewerSyntax(std::string_view source);

}  // namespace quiltor::standalone
