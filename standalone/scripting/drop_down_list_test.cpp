#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class DropDownLists : public ScriptTest {
 protected:
  // A dialog with a list of a, b and c whose changes are logged.
  std::string show(const std::string& script, const std::string& steps = "") {
    return run(
        "var log = [], w = new Window('dialog', 'Test'), l = w.add('dropdownlist', undefined, ['a', 'b', 'c']);"
        "l.onChange = function () { log.push(String(l.selection)); };" +
            script + "; w.show(); log.join(' ')",
        steps + "\nclose");
  }
};

TEST_F(DropDownLists, StartWithoutASelection) {
  EXPECT_EQ(run("String(new Window('dialog').add('dropdownlist', undefined, ['a']).selection)"), "null");
}

TEST_F(DropDownLists, TellOfEveryChangeThatAScriptMakes) {
  EXPECT_EQ(show("w.onShow = function () { l.selection = 1; l.selection = l.items[2]; l.selection = null; }"),
            "b c null");
}

TEST_F(DropDownLists, TellNothingOfTheSameItemOnceMore) {
  EXPECT_EQ(show("w.onShow = function () { l.selection = 1; l.selection = 1; l.selection = l.find('b'); }"), "b");
}

TEST_F(DropDownLists, TellWhenTheSelectedItemIsRemoved) {
  EXPECT_EQ(
      show("w.onShow = function () { l.selection = 1; l.remove(0); l.remove('b'); l.selection = 0; l.removeAll(); }"),
      "b null c null");
}

TEST_F(DropDownLists, TellBeforeTheWindowIsShownOrNot) {
  EXPECT_EQ(show("l.selection = 1"), "b");
  EXPECT_EQ(show("l.selection = 1", "option change-events shown"), "");
}

TEST_F(DropDownLists, TellOfAPersonsChoice) {
  EXPECT_EQ(show("", "choose dropdownlist \"b\"\nexpect dropdownlist selected \"b\"\nchoose dropdownlist #3"), "b c");
}

TEST_F(DropDownLists, AreMovedThroughByTheArrowKeys) {
  EXPECT_EQ(show("l.selection = 0; l.active = true", "press Down\npress Down\npress Up"), "a b c b");
}

TEST_F(DropDownLists, IgnoreAnIndexOutOfRange) {
  EXPECT_EQ(show("w.onShow = function () { l.selection = 0; l.selection = 7; l.selection = -1; "
                 "log.push(l.selection.index); }"),
            "a 0");
}

TEST_F(DropDownLists, ItemsAreNumbersAndTexts) {
  EXPECT_EQ(run("var l = new Window('dialog').add('dropdownlist', undefined, ['a', 'b']); l.selection = 1;"
                "[l.selection + 0, String(l.selection), l.selection.text, l.selection.index, l.selection.selected,"
                " l.items.length, l.selection instanceof ListItem, l.items[0].selected]"),
            "1,b,b,1,true,2,true,false");
}

TEST_F(DropDownLists, ItemsKeepWhatAScriptPutsIntoThem) {
  EXPECT_EQ(run("var l = new Window('dialog').add('dropdownlist'), i = l.add('item', 'x'); i.folder = 'f';"
                "l.items[0].folder + l.items.length"),
            "f1");
}

TEST_F(DropDownLists, ItemsAreDeadOnceTheyAreRemoved) {
  EXPECT_EQ(run("var l = new Window('dialog').add('dropdownlist', undefined, ['a']), i = l.items[0]; l.removeAll();"
                "i.index + ',' + i.selected + ',' + l.items.length"),
            "undefined,false,0");
}

TEST_F(DropDownLists, ASeparatorCannotBeChosen) {
  EXPECT_EQ(run("var l = new Window('dialog').add('dropdownlist', undefined, ['a', '-']); l.selection = 1; "
                "String(l.selection)"),
            "null");
}

TEST_F(DropDownLists, AnItemIsAddedAtItsPlace) {
  EXPECT_EQ(show("l.selection = 0; l.add('item', 'z', 0); log.push(l.selection.index, l.items[0].text)",
                 "expect dropdownlist selected \"a\"\nexpect dropdownlist items 4"),
            "a 1 z");
}

TEST_F(DropDownLists, AMisspeltPropertyIsAnError) {
  EXPECT_THAT(runOutcome("new Window('dialog').add('dropdownlist').selected").errorText,
              HasSubstr("DropDownList has no property \"selected\""));
}

}  // namespace
}  // namespace quiltor::standalone
