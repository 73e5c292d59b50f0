// `quiltor validate` as it is typed.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
#include "platform/testing/child_program.h"
#include "standalone/validate/validation.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class ValidateProgram : public testing::Test {
 protected:
  struct Outcome {
    int status = 0;
    std::string out;
  };

  Outcome run(std::vector<std::string> words) {
    words.insert(words.begin(), "validate");
    const std::string output = folder.path("output");
    const int status = ChildProgram(QUILTOR_PROGRAM, words, output).end();
    // As text, with the system's ends of lines.
    std::ifstream file(output);
    return {status, {std::istreambuf_iterator<char>(file), {}}};
  }

  ScratchFolder folder;
  EnvironmentOverride userData{"QUILTOR_USER_DIR", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
};

TEST_F(ValidateProgram, passesTheBuiltModule) {
  // A set-down that is refused the lock of its data cannot give back what that data owns. Other tests refuse the same
  // things and set down again, and watch for leaks.
  const EnvironmentOverride sanitizer("ASAN_OPTIONS", "detect_stack_use_after_return=1:detect_leaks=0");
  const Outcome outcome = run({"--json", "--time-limit", "280", "--plugin", QUILTOR_MODULE_PATH});
  const nlohmann::json report = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(report.at("passed").get<bool>());
  EXPECT_EQ(report.at("checks").size(), allChecks().size());
  for (const auto& check : report.at("checks")) {
    EXPECT_EQ(check.at("verdict"), "passed") << check.dump(2);
    EXPECT_GT(check.at("trials"), 0) << check.at("name");
  }
}

TEST_F(ValidateProgram, printsALineForEachCheckAndTheSum) {
  const EnvironmentOverride honest("QUILTOR_SAMPLE_MISDEED", "");
  const Outcome outcome = run({"--check", "about", "--check", "set-up", "--plugin", SAMPLE_EFFECT_PATH});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "passed         set-up                                  1 trial\n"
            "passed         about                                   1 trial\n"
            "2 checks with 2 trials: 2 passed\n");
}

TEST_F(ValidateProgram, endsWithStatus1WhenARuleIsBroken) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "HandleOverrun");
  const Outcome outcome = run({"--check", "about", "--plugin", SAMPLE_EFFECT_PATH});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("failed         about"));
  EXPECT_THAT(outcome.out, HasSubstr("HandleOverrun"));
  EXPECT_THAT(outcome.out, HasSubstr("1 check with 1 trial: 1 failed\n"));
  EXPECT_EQ(run({"--json", "--check", "about", "--plugin", SAMPLE_EFFECT_PATH}).status, 1);
}

TEST_F(ValidateProgram, printsTheFirstOfSeveralProblems) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "FrameLeaksSuite");
  EXPECT_THAT(
      run({"--check", "sizes", "--plugin", SAMPLE_EFFECT_PATH}).out,
      testing::AllOf(HasSubstr("than it was released (classic, 8 bits, 1 x 1); "), HasSubstr(" other problems")));
}

TEST_F(ValidateProgram, runsACheckInItsOwnProcessForADebugger) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "HandleOverrun");
  const Outcome outcome = run({"--in-process", "--check", "about", "--plugin", SAMPLE_EFFECT_PATH});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("PF_Cmd_ABOUT: HandleOverrun"));
}

TEST_F(ValidateProgram, namesTheChecks) {
  const Outcome outcome = run({"--list"});
  EXPECT_EQ(outcome.status, 0);
  for (const Check& check : allChecks()) EXPECT_THAT(outcome.out, HasSubstr(check.name + " "));
}

TEST_F(ValidateProgram, rejectsWhatItDoesNotKnow) {
  EXPECT_EQ(run({"--check", "abuot"}).status, 2);
  EXPECT_THAT(run({"--check", "abuot"}).out, HasSubstr("did you mean \"about\"?"));
  EXPECT_EQ(run({"--in-process"}).status, 2);
  EXPECT_EQ(run({"--time-limit", "soon"}).status, 2);
}

TEST_F(ValidateProgram, saysWhatItCannotLoad) {
  const Outcome outcome = run({"--plugin", folder.path("nowhere.so")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("nowhere.so: no such file, expected an effect module"));
}

}  // namespace
}  // namespace quiltor::standalone
