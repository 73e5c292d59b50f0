// `quiltor validate` as it is typed.
#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
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

  static Outcome run(const std::string& arguments) {
    FILE* const pipe = popen((QUILTOR_PROGRAM " validate " + arguments + " 2>&1").c_str(), "r");
    Outcome outcome;
    std::array<char, 4096> bytes;
    for (std::size_t read = 1; read > 0;) {
      read = std::fread(bytes.data(), 1, bytes.size(), pipe);
      outcome.out.append(bytes.data(), read);
    }
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
  }

  ScratchFolder folder;
  EnvironmentOverride userData{"XDG_CONFIG_HOME", folder.path("user")};
  EnvironmentOverride allUsersData{"QUILTOR_ALLUSERS_DIR", folder.path("all")};
};

TEST_F(ValidateProgram, passesTheBuiltModule) {
  // A set-down that is refused the lock of its data cannot give back what that data owns. Other tests refuse the same
  // things and set down again, and watch for leaks.
  const EnvironmentOverride sanitizer("ASAN_OPTIONS", "detect_stack_use_after_return=1:detect_leaks=0");
  const Outcome outcome = run("--json --time-limit 280 --plugin " QUILTOR_MODULE_PATH);
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
  const Outcome outcome = run("--check about --check set-up --plugin " SAMPLE_EFFECT_PATH);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "passed         set-up                                  1 trial\n"
            "passed         about                                   1 trial\n"
            "2 checks with 2 trials: 2 passed\n");
}

TEST_F(ValidateProgram, endsWithStatus1WhenARuleIsBroken) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "HandleOverrun");
  const Outcome outcome = run("--check about --plugin " SAMPLE_EFFECT_PATH);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("failed         about"));
  EXPECT_THAT(outcome.out, HasSubstr("HandleOverrun"));
  EXPECT_THAT(outcome.out, HasSubstr("1 check with 1 trial: 1 failed\n"));
  EXPECT_EQ(run("--json --check about --plugin " SAMPLE_EFFECT_PATH).status, 1);
}

TEST_F(ValidateProgram, printsTheFirstOfSeveralProblems) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "FrameLeaksSuite");
  EXPECT_THAT(run("--check sizes --plugin " SAMPLE_EFFECT_PATH).out,
              testing::ContainsRegex("than it was released \\(classic, 8 bits, 1 x 1\\); [0-9]+ other problems"));
}

TEST_F(ValidateProgram, runsACheckInItsOwnProcessForADebugger) {
  const EnvironmentOverride faulty("QUILTOR_SAMPLE_MISDEED", "HandleOverrun");
  const Outcome outcome = run("--in-process --check about --plugin " SAMPLE_EFFECT_PATH);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("PF_Cmd_ABOUT: HandleOverrun"));
}

TEST_F(ValidateProgram, namesTheChecks) {
  const Outcome outcome = run("--list");
  EXPECT_EQ(outcome.status, 0);
  for (const Check& check : allChecks()) EXPECT_THAT(outcome.out, HasSubstr(check.name + " "));
}

TEST_F(ValidateProgram, rejectsWhatItDoesNotKnow) {
  EXPECT_EQ(run("--check abuot").status, 2);
  EXPECT_THAT(run("--check abuot").out, HasSubstr("did you mean \"about\"?"));
  EXPECT_EQ(run("--in-process").status, 2);
  EXPECT_EQ(run("--time-limit soon").status, 2);
}

TEST_F(ValidateProgram, saysWhatItCannotLoad) {
  const Outcome outcome = run("--plugin " + folder.path("nowhere.so"));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("nowhere.so: no such file, expected an effect module"));
}

}  // namespace
}  // namespace quiltor::standalone
