#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class Edition3 : public ScriptTest {};

// Everything that a later edition has brought and a script may reach for.
class LaterEdition : public ScriptTest, public testing::WithParamInterface<const char*> {};

TEST_P(LaterEdition, IsNotThere) { EXPECT_EQ(run(std::string("typeof ") + GetParam()), "undefined"); }

INSTANTIATE_TEST_SUITE_P(
    Names, LaterEdition,
    testing::Values("JSON", "console", "Promise", "Map", "Set", "WeakMap", "Symbol", "Proxy", "Reflect", "Uint8Array",
                    "ArrayBuffer", "URL", "Object.keys", "Object.create", "Object.defineProperty", "Object.assign",
                    "Object.freeze", "Object.getPrototypeOf", "Function.prototype.bind", "Array.isArray", "Array.from",
                    "[].indexOf", "[].lastIndexOf", "[].forEach", "[].map", "[].filter", "[].some", "[].every",
                    "[].reduce", "[].find", "[].includes", "[].fill", "\"\".trim", "\"\".startsWith", "\"\".endsWith",
                    "\"\".includes", "\"\".repeat", "\"\".padStart", "\"\".codePointAt", "String.fromCodePoint",
                    "Date.now", "new Date().toISOString", "new Date().toJSON", "Math.trunc", "Math.sign", "Math.hypot",
                    "Number.isInteger", "setTimeout", "setInterval", "globalThis", "btoa", "nativeHost", "hostGlobal"));

TEST_F(Edition3, TheRestIsThereAndWorks) {
  EXPECT_EQ(run("[3, 1, 2].sort().concat([4]).slice(1).join('-') + 'a,b'.split(',').length + 'abc'.charAt(1) +"
                "'x'.charCodeAt(0) + 'aXa'.replace(/x/i, 'b') + /b(.)/.exec('abc')[1] + parseInt('12px', 10) +"
                "encodeURI('\u00e4 b') + escape('\u00e4') + Math.max(1, 2) + (255).toString(16) +"
                "new Date(0).getTime() + [1, 2].hasOwnProperty(0) + isNaN('x')"),
            "2-3-42b120abac12%C3%A4%20b%E42ff0truetrue");
}

TEST_F(Edition3, TheResultIsTheValueOfTheLastStatementAsText) {
  EXPECT_EQ(run("var a = 1; a + 1;"), "2");
  EXPECT_EQ(run("'\u00e4'"), "\u00e4");
  EXPECT_EQ(run("({})"), "[object Object]");
}

TEST_F(Edition3, AnUndefinedResultIsAnEmptyText) { EXPECT_EQ(run("function f() {} f();"), ""); }

TEST_F(Edition3, AnErrorLeavesTheResultEmptyAndTellsItsLine) {
  const ScriptOutcome outcome = runOutcome("'a';\n\nnoSuchThing();");
  EXPECT_NE(outcome.error, 0);
  EXPECT_EQ(outcome.result, "");
  EXPECT_THAT(outcome.errorText, HasSubstr("line 3: ReferenceError"));
}

TEST_F(Edition3, ATextThatTheHostCannotReadIsASyntaxError) {
  EXPECT_EQ(runOutcome("var a = 1;\nlet b = 2;").errorText,
            "line 2: SyntaxError: the host's language does not have \"let\"");
  EXPECT_THAT(runOutcome("var a = ;").errorText, HasSubstr("SyntaxError"));
}

TEST_F(Edition3, WhatAScriptLeavesBehindTheNextOneFinds) {
  run("var left = 'behind';");
  EXPECT_EQ(dialogs->run("left").result, "behind");
}

TEST_F(Edition3, ErrorsKnowTheirLine) { EXPECT_EQ(run("try {\n  x();\n} catch (e) {\n  e.line;\n}"), "2"); }

TEST_F(Edition3, ThisOfAPlainFunctionIsTheGlobalObject) {
  EXPECT_EQ(run("function f() { return this === $.global; } f();"), "true");
}

}  // namespace
}  // namespace quiltor::standalone
