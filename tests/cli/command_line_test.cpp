#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "tests/cli/command_line_run.h"

namespace quiltor::standalone {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST_F(CommandLineTest, asksForACommand) {
  const Outcome outcome = run({});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(
      outcome.err,
      "quiltor: expected a command: render, convert, library, gallery, settings, panel, validate, params or about; "
      "--help explains them\n");
}

TEST_F(CommandLineTest, suggestsTheCommandThatWasNearlyTyped) {
  const Outcome outcome = run({"rendr"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "quiltor: \"rendr\": no such command; did you mean \"render\"?\n");
}

TEST_F(CommandLineTest, suggestsTheOptionThatWasNearlyTyped) {
  const Outcome outcome = run({"render", "a.png", "-o", "b.png", "--patern", "c.png"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "quiltor: \"--patern\": no such option; did you mean \"--pattern\"?\n");
}

TEST_F(CommandLineTest, showsAnExampleInEveryHelp) {
  for (const char* command : {"render", "convert", "library", "panel", "params", "about"}) {
    const Outcome outcome = run({command, "--help"});
    EXPECT_EQ(outcome.status, 0) << command;
    EXPECT_THAT(outcome.out, HasSubstr("Example:\n  quiltor " + std::string(command))) << command;
    EXPECT_EQ(outcome.err, "") << command;
  }
  EXPECT_THAT(run({"--help"}).out, HasSubstr("Example:\n  quiltor "));
}

TEST_F(CommandLineTest, answersWrongUseWithOneLineAndStatus2) {
  const std::vector<std::vector<std::string>> wrong{
      {"render"},
      {"render", "a.png"},
      {"render", "a.png", "-o", "b.png", "--depth", "12"},
      {"render", "a.png", "-o", "b.png", "--downsample", "0"},
      {"render", "a.png", "-o", "b.png", "--downsample", "two"},
      {"render", "a.png", "-o", "b.png", "--classic", "--smart"},
      {"render", "a.png", "-o", "b.png", "--pattern", "c.png", "--pattern-layer", "d.png"},
      {"render", "a.png", "-o", "b.jpg"},
      {"render", "a.png", "-o", "b.png", "--layer-position", "1"},
      {"render", "a.png", "-o", "b.png", "--layer-scale", "big"},
      {"render", "a.png", "-o", "b.png", "--layer-rotation", "1,2"},
      {"params", "extra"},
      {"convert"},
      {"convert", "a.pat"},
      {"convert", "-o", "out"},
      {"library", "scan", "--all-users", "--this-user"},
      {"library", "sheet", "Textures"},
      {"library", "list", "extra"},
      {"ren\nder"},
      {"convert", "--\nout"},
  };
  for (const auto& words : wrong) {
    const Outcome outcome = run(words);
    const std::string typed = testing::PrintToString(words);
    EXPECT_EQ(outcome.status, 2) << typed;
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << typed << outcome.err;
    EXPECT_THAT(outcome.err, testing::StartsWith("quiltor: ")) << typed;
    EXPECT_EQ(outcome.out, "") << typed;
  }
}

TEST_F(CommandLineTest, namesTheModuleThatIsMissing) {
  const Outcome outcome = run({"about", "--plugin", folder.path("none.so")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr(folder.path("none.so")));
  EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
}

TEST_F(CommandLineTest, listsTheModulesParameters) {
  const Outcome outcome = runModule({"params"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, AllOf(testing::ContainsRegex("\nsource +Source +popup +File +Layer, File\n"),
                                 testing::ContainsRegex("\nscale +Scale +slider +100% +1 to 500%\n"),
                                 testing::ContainsRegex("\noffset +Offset +point +50%,50% "),
                                 testing::ContainsRegex("\ntintcolor +Tint Color +colour +#b744c8 "),
                                 testing::ContainsRegex("\nmask +Mask +mask +none ")));
  EXPECT_THAT(outcome.out, HasSubstr("Phoenix"));
}

TEST_F(CommandLineTest, printsWhatTheModuleSaysAboutItself) {
  const Outcome outcome = runModule({"about"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, testing::StartsWith("Quiltor\nThe plugin allows you to draw textures on layers"));
}

TEST_F(CommandLineTest, saysThatTheModuleSaysNothingAboutItselfInPremiere) {
  const Outcome outcome = runModule({"about", "--host", "premiere"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "The effect says nothing about itself in this host.\n");
}

TEST_F(CommandLineTest, tracesSelectorsAndSuites) {
  const Outcome outcome = runModule({"about", "--trace"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.err,
              AllOf(HasSubstr("PF_Cmd_GLOBAL_SETUP"), HasSubstr("PF_Cmd_ABOUT"), HasSubstr("PF ANSI Suite")));
}

}  // namespace
}  // namespace quiltor::standalone
