#include "standalone/scripting/language/newer_syntax.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "standalone/scripting/language/script_tokens.h"

namespace quiltor::standalone {
namespace {

using Kind = ScriptToken::Kind;
using Words = std::vector<std::string_view>;

// Words that the third edition uses.
const Words kKeywords{"break", "case",    "catch",  "continue", "default", "delete", "do",
                      "else",  "finally", "for",    "function", "if",      "in",     "instanceof",
                      "new",   "return",  "switch", "this",     "throw",   "try",    "typeof",
                      "var",   "void",    "while",  "with",     "null",    "true",   "false"};
// Words that it keeps for later.
const Words kReserved{"abstract",   "boolean",   "byte",    "char",      "class",  "const",  "debugger",
                      "double",     "enum",      "export",  "extends",   "final",  "float",  "goto",
                      "implements", "import",    "int",     "interface", "long",   "native", "package",
                      "private",    "protected", "public",  "short",     "static", "super",  "synchronized",
                      "throws",     "transient", "volatile"};

bool contains(const Words& words, std::string_view word) { return std::ranges::find(words, word) != words.end(); }
bool isAnyReserved(std::string_view word) { return contains(kKeywords, word) || contains(kReserved, word); }

class SyntaxSearch {
 public:
  explicit SyntaxSearch(std::vector<ScriptToken> tokens) : tokens_(std::move(tokens)) {}

  std::optional<SyntaxFault> run() {
    for (at_ = 0; at_ < tokens_.size(); ++at_) {
      std::string fault = faultHere();
      if (!fault.empty()) return SyntaxFault{tokens_[at_].line, std::move(fault)};
    }
    return std::nullopt;
  }

 private:
  // What an open bracket has seen so far between commas and semicolons.
  struct Level {
    bool hasAnd = false, hasOr = false;
    bool sawConditional = false;
  };

  std::string_view textAt(std::size_t index) const { return index < tokens_.size() ? tokens_[index].text : ""; }
  std::string_view before() const { return at_ > 0 ? tokens_[at_ - 1].text : ""; }
  std::string_view after() const { return textAt(at_ + 1); }

  std::string faultHere() {
    const ScriptToken& token = tokens_[at_];
    if (token.kind == Kind::Template) return "a template string";
    if (token.kind == Kind::Word) return faultOfWord(std::string(token.text));
    if (token.kind == Kind::Sign) return faultOfSign(token.text);
    return "";
  }

  std::string faultOfWord(const std::string& word) const {
    const bool isProperty = before() == ".";
    const bool isKey = after() == ":" && (before() == "{" || before() == ",") && word != "default";
    if ((isProperty || isKey) && isAnyReserved(word)) return "\"" + word + "\", a reserved word, as a property's name";
    if (isProperty || isKey) return "";
    if (contains(kReserved, word) && word != "debugger")
      return "\"" + word + "\", a word that the language keeps for later";
    const bool nameFollows = at_ + 1 < tokens_.size() && tokens_[at_ + 1].kind == Kind::Word &&
                             !isAnyReserved(after()) && tokens_[at_ + 1].line == tokens_[at_].line;
    if ((word == "let" || word == "async") && (nameFollows || after() == "[" || after() == "{"))
      return "\"" + word + "\"";
    const bool opensProperty = before() == "{" || before() == ",";
    if ((word == "get" || word == "set") && opensProperty && nameFollows && textAt(at_ + 2) == "(")
      return "a getter or setter";
    if (word == "of" && at_ > 1 && tokens_[at_ - 1].kind == Kind::Word && nameFollows) return "\"for ... of\"";
    return "";
  }

  std::string faultOfSign(std::string_view sign) {
    if (sign == "=>") return "an arrow function";
    if (sign == "...") return "\"...\"";
    if (sign == "#") return "\"#\": a placeholder that was not filled, or a line for a preprocessor";
    if (sign == "," && (after() == "}" || after() == "]")) return "a comma before \"" + std::string(after()) + "\"";
    if ((sign == "?" && (after() == "." || after() == "?")) || (sign == "*" && before() == "*" && isAdjacent()))
      return "an operator of later editions";
    return faultOfOperator(sign);
  }

  bool isAdjacent() const { return tokens_[at_ - 1].text.data() + 1 == tokens_[at_].text.data(); }

  std::string faultOfOperator(std::string_view sign) {
    if (sign == "(" || sign == "[" || sign == "{") levels_.emplace_back();
    if (sign == ")" || sign == "]" || sign == "}") {
      if (levels_.size() > 1) levels_.pop_back();
      if (sign == "}") levels_.back() = {};
    }
    Level& level = levels_.back();
    if (sign == "," || sign == ";") level = {};
    const bool isDouble = sign == before() && isAdjacent();
    if (sign == "&" && isDouble) level.hasAnd = true;
    if (sign == "|" && isDouble) level.hasOr = true;
    if (level.hasAnd && level.hasOr) return "&& and || side by side, which the host groups from left to right";
    if (sign == "?") {
      level.hasAnd = level.hasOr = false;
      if (level.sawConditional) return "a conditional beside another, which the host groups from left to right";
      level.sawConditional = true;
    }
    if (sign == ":") level.hasAnd = level.hasOr = false;
    return "";
  }

  std::vector<ScriptToken> tokens_;
  std::size_t at_ = 0;
  std::vector<Level> levels_{1};
};

}  // namespace

std::optional<SyntaxFault> findNewerSyntax(std::string_view source) { return SyntaxSearch(scriptTokens(source)).run(); }

}  // namespace quiltor::standalone
