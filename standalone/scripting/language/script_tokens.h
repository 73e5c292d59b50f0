#pragma once

#include <string_view>
#include <vector>

namespace quiltor::standalone {

struct ScriptToken {
  enum class Kind { Word, Number, String, RegExp, Sign, Template };
  Kind kind;
  std::string_view text;
  int line;  // from 1
};

// Splits a script into its tokens, without comments and blanks. Signs are single characters, but for "=>" and "...".
// Never fails: what cannot be read comes out as signs, and the parser of the engine complains about it.
[[nodiscard]] std::vector<ScriptToken> scriptTokens(std::string_view source);

}  // namespace quiltor::standalone
