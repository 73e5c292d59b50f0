#include "standalone/scripting/language/script_tokens.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quiltor::standalone {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isWordPart(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' || c == '\\' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// After a value a slash divides; after anything else it opens a regular expression.
bool endsValue(const ScriptToken& token) {
  if (token.kind == ScriptToken::Kind::Sign) return token.text == ")" || token.text == "]" || token.text == "}";
  if (token.kind != ScriptToken::Kind::Word) return true;
  constexpr std::array<std::string_view, 8> kOperators{"return", "typeof", "case",  "in",
                                                       "delete", "void",   "throw", "instanceof"};
  return std::ranges::find(kOperators, token.text) == kOperators.end();
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view source) : source_(source) {}

  std::vector<ScriptToken> run() {
    while (skipBlanks(), at_ < source_.size()) tokens_.push_back(next());
    return std::move(tokens_);
  }

 private:
  char peek(std::size_t ahead = 0) const { return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0'; }
  bool follows(std::string_view text) const { return source_.substr(at_).starts_with(text); }

  void step() {
    if (peek() == '\n') ++line_;
    ++at_;
  }

  void skipBlanks() {
    while (at_ < source_.size()) {
      if (follows("//")) {
        while (at_ < source_.size() && peek() != '\n') step();
      } else if (follows("/*")) {
        const std::size_t end = source_.find("*/", at_ + 2);
        const std::size_t stop = end == std::string_view::npos ? source_.size() : end + 2;
        while (at_ < stop) step();
      } else if (follows("\xEF\xBB\xBF")) {
        at_ += 3;
      } else if (static_cast<unsigned char>(peek()) <= ' ') {
        step();
      } else {
        return;
      }
    }
  }

  ScriptToken next() {
    const std::size_t start = at_;
    const int line = line_;
    const ScriptToken::Kind kind = pass();
    return {kind, source_.substr(start, at_ - start), line};
  }

  ScriptToken::Kind pass() {
    const char c = peek();
    if (isDigit(c) || (c == '.' && isDigit(peek(1)))) {
      while (isWordPart(peek()) || peek() == '.') step();
      return ScriptToken::Kind::Number;
    }
    if (isWordPart(c)) {
      while (isWordPart(peek())) step();
      return ScriptToken::Kind::Word;
    }
    if (c == '"' || c == '\'' || c == '`') {
      passQuoted(c);
      return c == '`' ? ScriptToken::Kind::Template : ScriptToken::Kind::String;
    }
    if (c == '/' && (tokens_.empty() || !endsValue(tokens_.back()))) {
      passRegExp();
      return ScriptToken::Kind::RegExp;
    }
    if (follows("=>")) step();
    if (follows("...")) at_ += 2;
    step();
    return ScriptToken::Kind::Sign;
  }

  void passQuoted(char quote) {
    step();
    while (at_ < source_.size() && peek() != quote && (quote == '`' || peek() != '\n')) {
      if (peek() == '\\') step();
      if (at_ < source_.size()) step();
    }
    if (peek() == quote) step();
  }

  void passRegExp() {
    bool inClass = false;
    step();
    while (at_ < source_.size() && peek() != '\n' && (inClass || peek() != '/')) {
      if (peek() == '[') inClass = true;
      if (peek() == ']') inClass = false;
      if (peek() == '\\') step();
      if (at_ < source_.size()) step();
    }
    while (peek() == '/' || isWordPart(peek())) step();
  }

  std::string_view source_;
  std::size_t at_ = 0;
  int line_ = 1;
  std::vector<ScriptToken> tokens_;
};

}  // namespace

std::vector<ScriptToken> scriptTokens(std::string_view source) { return Tokenizer(source).run(); }

}  // namespace quiltor::standalone
