#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kScript =
    "var w = new Window('dialog', 'Test');"
    "var g = w.add('group', undefined, {name: 'row_0'});"
    "g.add('button', undefined, 'Set'); g.add('button', undefined, 'Set');"
    "g.add('statictext', undefined, 'say \"hi\"'); g.add('checkbox', undefined, 'Box');"
    "g.add('dropdownlist', undefined, ['x', 'y']);";

class AutomationTest : public ScriptTest {
 protected:
  std::string complaintOf(const std::string& steps) { return complaint(std::string(kScript) + "w.show()", steps); }
};

// One clear line for each mistake: where, what, and what was expected.
struct Mistake {
  const char* name;
  const char* steps;
  const char* line;
};

class AutomationMistake : public AutomationTest, public testing::WithParamInterface<Mistake> {};

TEST_P(AutomationMistake, IsToldInOneLine) {
  const std::string line = complaintOf(GetParam().steps);
  EXPECT_THAT(line, HasSubstr(GetParam().line));
  EXPECT_EQ(line.find('\n'), std::string::npos);
}

const Mistake kMistakes[] = {
    {"UnknownStep", "\nclik \"Set\"", "steps: line 2: \"clik\" is no step; expected answer, check, choose, click,"},
    {"UnendedQuote", "click \"Set", "steps: line 1: a quoted text does not end"},
    {"TooFewWords", "click", "steps: line 1: expected click CONTROL"},
    {"TooManyWords", "close now", "steps: line 1: expected close"},
    {"NoSuchControl", "# a comment\n\nclick \"Sot\"",
     "steps: line 3: click: \"Sot\": there is no such control; there are \"Set\", \"say \"hi\"\", \"Box\""},
    {"TooHighANumber", "click \"Set\"#3", "line 1: click: \"Set\"#3: there are only 2 such controls"},
    {"NoSelector", "click \"Set\"#x", "line 1: click: \"Set\"#x: expected a control, such as \"OK\""},
    {"NoSuchItem", "choose dropdownlist z", "line 1: choose: there is no item \"z\"; there are \"x\", \"y\""},
    {"NoList", "choose \"Box\" z", "line 1: choose: expected a dropdownlist, not a checkbox"},
    {"NoBox", "check \"Set\" on", "line 1: check: expected a checkbox, not a button"},
    {"NeitherOnNorOff", "check \"Box\" yes", "line 1: check: \"yes\": expected on or off"},
    {"NoEntry", "type \"Box\" x", "line 1: type: expected an edittext, not a checkbox"},
    {"NoKey", "press Entre", "line 1: press: \"Entre\" is no key"},
    {"OtherDialog", "dialog \"Other\"", "line 1: dialog: the dialog that is open is \"Test\""},
    {"WrongState", "expect \"Box\" on", "line 1: expect: it is checkbox \"Box\" "},
    {"UnknownState", "expect \"Box\" pink", "line 1: expect: \"pink\": expected shown, hidden,"},
    {"NoAlert", "expect alert \"a\"", "line 1: expect: there was no alert"},
    {"NotClosed", "expect closed", "line 1: expect: the dialog \"Test\" is open"},
    {"StepsEnd", "print \"\"", "line 1: the steps end while the dialog \"Test\" is open"},
    {"NoDialogLeft", "close\n\nclick \"Set\"", "steps: line 3: click: no dialog is open any more"},
    {"WrongResult", "close\nexpect result \"9\"", "line 2: expect: it is \"2\""},
    {"UnknownOption", "option colour red", "line 1: option: option colour: expected order, writing,"},
    {"UnknownOptionValue", "option order random", "line 1: option: option order: \"random\": expected name, reversed"},
    {"PictureThatCannotBeWritten", "screenshot /no/such/folder/s.png",
     "line 1: screenshot: /no/such/folder/s.png: cannot be written: "},
};

INSTANTIATE_TEST_SUITE_P(Mistakes, AutomationMistake, testing::ValuesIn(kMistakes),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AutomationTest, NothingIsDoneAfterTheFirstMistake) {
  complaint("alert('before'); new Window('dialog').show(); alert(Folder.selectDialog('x'))",
            "click nothing\nanswer FOLDER\nprint \"not this\"");
  EXPECT_EQ(said.str(), "alert: before\nchoose folder: x\nalert: null\n");
  EXPECT_NE(dialogs->run("alert('never')").error, 0);
}

TEST_F(AutomationTest, ControlsAreMeantByKindTextNumberAndName) {
  EXPECT_EQ(run(std::string(kScript) + "var n = ''; g.children[0].onClick = function () { n += 1; };"
                                       "g.children[1].onClick = function () { n += 2; }; w.show(); n",
                "click \"Set\"\nclick \"Set\"#2\nclick button#1\nclick button\"Set\"#2\nexpect @row_0\n"
                "expect \"say \\\"hi\\\"\" shown\nclose"),
            "1212");
}

TEST_F(AutomationTest, TheTreeHasALineForEachControl) {
  run(std::string(kScript) +
          "g.children[1].enabled = false; g.children[2].visible = false;"
          "g.children[4].selection = 1; w.show()",
      "tree\nclose");
  EXPECT_THAT(said.str(),
              testing::MatchesRegex("dialog \"Test\" 0,0 [0-9]+x[0-9]+\n"
                                    "  group @row_0 15,15 [0-9]+x[0-9]+\n"
                                    "    button \"Set\" 15,[0-9]+ [0-9]+x[0-9]+ focused\n"
                                    "    button \"Set\" [0-9]+,[0-9]+ [0-9]+x[0-9]+ disabled\n"
                                    "    statictext \"say ..hi..\" [0-9]+,[0-9]+ [0-9]+x[0-9]+ hidden\n"
                                    "    checkbox \"Box\" [0-9]+,[0-9]+ [0-9]+x[0-9]+ off\n"
                                    "    dropdownlist [0-9]+,[0-9]+ [0-9]+x[0-9]+ items=2 selected=\"y\"\n"));
}

TEST_F(AutomationTest, TheTreeAndThePictureAreOfOneSize) {
  run(std::string(kScript) + "w.show()", "tree\nscreenshot FOLDER/s.png\nclose");
  const QImage shot(QString::fromStdString(folder.path("s.png")));
  const std::string size = std::to_string(shot.width()) + "x" + std::to_string(shot.height());
  EXPECT_THAT(said.str(), HasSubstr("dialog \"Test\" 0,0 " + size + "\n"));
}

TEST_F(AutomationTest, StepsGoOnWithTheNextScript) {
  runOutcome("new Window('dialog', 'One').show()", "close\ndialog \"Two\"\nclose");
  EXPECT_THAT(dialogs->complaints(), ElementsAre(HasSubstr("line 2: dialog: no dialog is open any more")));
  dialogs->run("new Window('dialog', 'Two').show()");
  EXPECT_THAT(dialogs->complaints(), IsEmpty());
}

TEST_F(AutomationTest, APictureOfTheFirstDialogClosesItWhenThereAreNoSteps) {
  Dialogs photographer({.screenshot = folder.path("s.png"), .out = &said});
  EXPECT_EQ(photographer.run(std::string(kScript) + "w.show(); 'closed'").result, "closed");
  EXPECT_FALSE(QImage(QString::fromStdString(folder.path("s.png"))).isNull());
}

}  // namespace
}  // namespace quiltor::standalone
