#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kDialog =
    "var log = [], w = new Window('dialog', 'Test');"
    "var a = w.add('button', undefined, 'A'), ok = w.add('button', undefined, 'OK'),"
    "c = w.add('button', undefined, 'Cancel');";

class Windows : public ScriptTest {
 protected:
  std::string show(const std::string& before, const std::string& steps) {
    return run(kDialog + before + "; log.push(w.show()); log.join(' ')", steps);
  }
};

TEST_F(Windows, ShowBlocksAndGivesWhatCloseWasGiven) {
  EXPECT_EQ(show("a.onClick = function () { w.close(7); log.push('after'); }", "click \"A\""), "after 7");
  EXPECT_EQ(show("a.onClick = function () { w.close(); }", "click \"A\""), "0");
  EXPECT_EQ(show("a.onClick = function () { w.hide(); }", "click \"A\""), "0");
}

TEST_F(Windows, ButtonsCalledOkAndCancelCloseWithoutAWord) {
  EXPECT_EQ(show("", "click \"OK\""), "1");
  EXPECT_EQ(show("", "click \"Cancel\""), "2");
  EXPECT_EQ(show("ok.onClick = function () { log.push('own'); }", "click \"OK\"\nclose"), "own 2");
}

TEST_F(Windows, EnterAndEscapeMeanTheDefaultAndTheCancelButton) {
  EXPECT_EQ(show("c.onClick = function () { log.push('cancel'); w.close(5); }", "press Escape"), "cancel 5");
  EXPECT_EQ(show("w.add('checkbox', undefined, 'Box').active = true", "press Enter"), "1");
  EXPECT_EQ(show("w.add('checkbox', undefined, 'Box').active = true; w.defaultElement = a;"
                 "a.onClick = function () { w.close(9); }",
                 "press Enter"),
            "9");
}

TEST_F(Windows, EscapeClosesADialogThatHasNoCancelButton) {
  EXPECT_EQ(run("var w = new Window('dialog'); w.show()", "press Escape"), "2");
}

TEST_F(Windows, TheTitleBarClosesAsEscapeDoes) { EXPECT_EQ(show("", "close"), "2"); }

TEST_F(Windows, OnCloseMayKeepTheDialogOpen) {
  EXPECT_EQ(show("var n = 0; w.onClose = function () { return ++n > 1; }", "click \"OK\"\nclick \"Cancel\""), "2");
}

TEST_F(Windows, AreLaidOutOnceBeforeOnShow) {
  EXPECT_EQ(show("log.push(w.size, a.location); w.onShow = function () { log.push(w.size.width > 0, a.location.x); }",
                 "close"),
            "  true 15 2");
}

TEST_F(Windows, AreNotLaidOutAgainUntilTheScriptSaysSo) {
  EXPECT_EQ(show("var s; w.onShow = function () { s = a.size.width; a.text = 'A much, much longer text';"
                 "log.push(a.size.width === s); w.layout.layout(true); log.push(a.size.width > s); }",
                 "close"),
            "true true 2");
}

TEST_F(Windows, CloseInOnShowIsHonouredOrNot) {
  const std::string script = "w.onShow = function () { w.close(3); }";
  EXPECT_EQ(show(script, ""), "3");
  EXPECT_EQ(show(script, "option close-in-onshow ignored\nclick \"OK\""), "1");
}

TEST_F(Windows, KeepAPlaceThatIsSetBefore) {
  EXPECT_EQ(show("w.location = [30, 40]; w.onShow = function () { log.push(w.location, w.location[1], w.location.x); }",
                 "close"),
            "30,40 40 30 2");
}

TEST_F(Windows, FindTheirControlsByName) {
  EXPECT_EQ(run("var w = new Window('dialog'), g = w.add('group', undefined, {name: 'row_0'});"
                "var b = g.add('button', undefined, 'x', {name: 'deep'});"
                "[w.row_0 === g, w.children['row_0'] === g, w.children[0] === g, w.children.length,"
                " w.findElement('deep') === b, w.findElement('no')].join(' ')"),
            "true true true 1 true ");
}

TEST_F(Windows, OtherTypesAndMisspeltPropertiesAreRefused) {
  EXPECT_THAT(runOutcome("new Window('palette')").errorText, HasSubstr("\"palette\" is no type of window"));
  EXPECT_THAT(runOutcome("new Window('dialog', '', undefined, {resizable: false})").errorText,
              EndsWith("Window: \"resizable\" is no creation property"));
  EXPECT_THAT(runOutcome("new Window('dialog').add('labl')").errorText, HasSubstr("\"labl\" is no type of element"));
  EXPECT_THAT(runOutcome("new Window('dialog').shw()").errorText, EndsWith("Window has no property \"shw\""));
}

TEST_F(Windows, TakeAnyPropertyFromAScriptButKnowWhichTheyNeverGot) {
  EXPECT_EQ(run("var w = new Window('dialog'); w.padding = 5; w.padding"), "5");
  EXPECT_THAT(runOutcome("new Window('dialog').padding").errorText, EndsWith("Window has no property \"padding\""));
}

TEST_F(Windows, AnErrorInAHandlerLeavesTheDialogOpenAndIsAComplaint) {
  EXPECT_EQ(complaint(std::string(kDialog) + "a.onClick = function () {\nnoSuchThing();\n}; w.show()",
                      "click \"A\"\nexpect \"A\"\nclick \"OK\"\nexpect result 1"),
            "a dialog: ReferenceError: noSuchThing is not defined (line 2)");
}

TEST_F(Windows, MayOpenOthers) {
  EXPECT_EQ(show("a.onClick = function () { var v = new Window('dialog', 'Inner'); v.add('button', undefined, 'OK');"
                 "log.push(v.show()); }",
                 "click \"A\"\ndialog \"Inner\"\nclick \"OK\"\ndialog \"Test\"\nclick \"Cancel\""),
            "1 2");
}

TEST_F(Windows, MessageBoxesTellAndAsk) {
  EXPECT_EQ(run("[alert('a'), Window.alert('b'), confirm('c'), confirm('d'), prompt('e', 'f'), prompt('g')].join(' ')",
                "reply yes\nreply no\nreply \"text\"\nreply cancel\nexpect alert \"a\"\nexpect alert \"b\""),
            "  true false text ");
  EXPECT_EQ(said.str(), "alert: a\nalert: b\nconfirm: c\nconfirm: d\nprompt: e\nprompt: g\n");
}

TEST_F(Windows, TheEngineTellsOfItsSurroundings) {
  EXPECT_EQ(run("$.screens[0].right > 0 && $.screens[0].primary"), "true");
  EXPECT_EQ(run("$.getenv('HOME') + $.getenv('QUILTOR_NO_SUCH')"), folder.path() + "null");
  EXPECT_THAT(run("$.os", "option windows-names FOLDER"), StartsWith("Windows"));
  EXPECT_EQ(run("$.writeln('a', 1); $.level + ScriptUI.Alignment.FILL"), "5");
  EXPECT_EQ(said.str(), "a1\n");
  EXPECT_EQ(run("app.preferences.getPrefAsLong('Main Pref Section v2', 'Pref_SCRIPTING_FILE_NETWORK_SECURITY')",
                "option writing denied"),
            "0");
  EXPECT_THAT(runOutcome("$.evalFil('x')").errorText, EndsWith("$ has no property \"evalFil\""));
}

}  // namespace
}  // namespace quiltor::standalone
