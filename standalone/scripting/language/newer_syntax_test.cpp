#include "standalone/scripting/language/newer_syntax.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

struct SyntaxCase {
  const char* name;
  const char* source;
  const char* fault;  // empty: none
  int line = 1;
};

class NewerSyntax : public testing::TestWithParam<SyntaxCase> {};

TEST_P(NewerSyntax, IsFoundWithItsLineAndNothingElseIs) {
  const auto fault = findNewerSyntax(GetParam().source);
  const std::string expected = GetParam().fault;
  ASSERT_EQ(fault.has_value(), !expected.empty()) << (fault ? fault->text : "nothing found");
  if (!fault) return;
  EXPECT_NE(fault->text.find(expected), std::string::npos) << fault->text;
  EXPECT_EQ(fault->line, GetParam().line);
}

const SyntaxCase kCases[] = {
    {"Let", "var a;\nlet b = 1;", "\"let\"", 2},
    {"LetAsAName", "var let = 1; let = 2;", ""},
    {"Const", "const a = 1;", "\"const\""},
    {"Class", "class A {}", "\"class\""},
    {"ArrowFunction", "f(function () {});\n\nf(x => x);", "an arrow function", 3},
    {"Template", "var s = `a`;", "a template string"},
    {"Spread", "f(...a);", "\"...\""},
    {"Getter", "var o = {get a() { return 1; }};", "a getter or setter"},
    {"AKeyCalledGet", "var o = {get: 1, set: 2};", ""},
    {"ReservedWordAsAProperty", "a.default = 1;", "reserved word"},
    {"ReservedWordAsAKey", "var o = {a: 1, class: 2};", "reserved word"},
    {"QuotedReservedWord", "var o = {\"class\": 2}; o[\"default\"] = 1;", ""},
    {"DefaultOfASwitch", "switch (a) { case 1: b(); default: c(); }", ""},
    {"EmptySwitchWithADefault", "switch (a) {default: c();}", ""},
    {"ReservedWordAsAVariable", "var int = 1;", "\"int\""},
    {"CommaAtTheEndOfAnObject", "var o = {a: 1,};", "a comma before \"}\""},
    {"CommaAtTheEndOfAnArray", "var o = [1,\n];", "a comma before \"]\""},
    {"UnfilledPlaceholder", "var x = #X_POS;", "a placeholder"},
    {"PlaceholderInAString", "var x = \"#X_POS\";", ""},
    {"AndBesideOr", "if (a || b && c) d();", "&& and ||"},
    {"AndInBracketsBesideOr", "if (a || (b && c)) d();", ""},
    {"AndAndOrOfTwoStatements", "a = b && c; d = e || f;", ""},
    {"AndAndOrOfTwoArguments", "f(a && b, c || d);", ""},
    {"AndAndOrOnBothSidesOfABlock", "if (a) { b && c; }\nx = d || e;", ""},
    {"NestedConditional", "x = a ? b : c ? d : e;", "a conditional"},
    {"ConditionalsOfTwoStatements", "x = a ? b : c; y = d ? e : f;", ""},
    {"ConditionalInBrackets", "x = a ? b : (c ? d : e);", ""},
    {"ForOf", "for (var a of b) c();", "\"for ... of\""},
    {"Power", "x = a ** b;", "an operator of later editions"},
    {"CommentsAndRegularExpressions", "// let a = `b`;\n/* class */ var r = /[/`]let x/g, d = a / b / c;", ""},
    {"RegularExpressionAfterReturn", "function f() { return /`/; }", ""},
    {"StringWithEscapes", "var s = 'it\\'s => `', t = \"\\\\\";", ""},
    {"EmptyText", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Cases, NewerSyntax, testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quiltor::standalone
