// An effect that is honest but for one misdeed, which the report has to name, while all other checks still run.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/environment_override.h"
#include "platform/scratch_folder.h"
#include "standalone/host/services/findings.h"
#include "standalone/validate/validation.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;
using Reports = std::vector<CheckReport>;

class FaultyEffect : public testing::Test {
 protected:
  Reports validateSample(const std::string& misdeed, std::vector<std::string> only = {},
                         std::chrono::milliseconds limit = std::chrono::minutes(4)) {
    const EnvironmentOverride chosen("QUILTOR_SAMPLE_MISDEED", misdeed);
    return validate({.module = SAMPLE_EFFECT_PATH,
                     .program = QUILTOR_PROGRAM,
                     .folder = folder.path(),
                     .only = std::move(only),
                     .limit = limit});
  }

  static CheckReport reportOn(const Reports& reports, const std::string& check) {
    const auto found =
        std::find_if(reports.begin(), reports.end(), [&](const auto& report) { return report.name == check; });
    return found == reports.end() ? CheckReport{} : *found;
  }

  static std::string text(const CheckReport& report) {
    std::string all = nameOf(report.verdict) + "\n";
    for (const std::string& why : report.why) all += why + "\n";
    return all;
  }

  ScratchFolder folder;
};

TEST_F(FaultyEffect, PassesEveryCheckWhileItIsHonest) {
  const Reports reports = validateSample("");
  EXPECT_EQ(reports.size(), allChecks().size());
  for (const CheckReport& report : reports) {
    EXPECT_FALSE(report.bad()) << report.name << ": " << text(report);
    // It has no dialog, and asks for nothing when a parameter changes or its control is clicked.
    const bool applies = report.name.find("dialog") == std::string::npos &&
                         report.name != "refusals-changed-parameter" && report.name != "refusals-control-click";
    EXPECT_EQ(report.verdict, applies ? Verdict::Passed : Verdict::NotApplicable) << report.name;
    EXPECT_TRUE(report.trials > 0 || !applies) << report.name;
  }
}

struct Misdeed {
  std::string name;
  std::string check;
  Verdict verdict;
  std::string why;
};

void PrintTo(const Misdeed& misdeed, std::ostream* out) { *out << misdeed.name; }

class EveryFault : public FaultyEffect, public testing::WithParamInterface<Misdeed> {};

TEST_P(EveryFault, IsNamedAndTheOtherChecksStillRun) {
  const Misdeed& misdeed = GetParam();
  const bool hangs = misdeed.verdict == Verdict::TimedOut;
  const auto limit = hangs ? std::chrono::seconds(5) : std::chrono::seconds(240);
  const Reports reports = validateSample(misdeed.name, {misdeed.check, "unknown-selectors"}, limit);
  ASSERT_EQ(reports.size(), 2u);
  const CheckReport report = reportOn(reports, misdeed.check);
  EXPECT_EQ(report.verdict, misdeed.verdict) << text(report);
  EXPECT_THAT(text(report), HasSubstr(misdeed.why));
  EXPECT_EQ(reportOn(reports, "unknown-selectors").verdict,
            misdeed.name == "ParamCountMismatch" ? Verdict::Failed : Verdict::Passed);
}

INSTANTIATE_TEST_SUITE_P(
    Each, EveryFault,
    testing::Values(
        Misdeed{"FrameLeaksSuite", "sizes", Verdict::Failed,
                "PF_Cmd_RENDER: SuiteNotReleased: \"PF Handle Suite\" 2 was acquired 1 times more than it was released "
                "(classic, 8 bits, 1 x 1)"},
        Misdeed{"FrameWritesPastRow", "sizes", Verdict::Failed,
                "PF_Cmd_RENDER: WorldOverrun: the output world was written outside its pixels: row 8 of 9, byte 4 of 4 "
                "(classic, 8 bits, 1 x 9)"},
        Misdeed{"FrameForgetsCheckin", "sizes", Verdict::Failed,
                "PF_Cmd_RENDER: ParamNotCheckedIn: parameter 1 was checked out and not checked in"},
        Misdeed{"ParamCountMismatch", "set-up", Verdict::Failed,
                "PF_Cmd_PARAMS_SETUP: ParamCountMismatch: the effect reports 4 parameters, expected 9"},
        Misdeed{"FrameCrashes", "sizes", Verdict::Crashed, "in PF_Cmd_RENDER, classic, 16 bits, 1 x 1"},
        Misdeed{"FrameHangs", "sizes", Verdict::TimedOut,
                "no end after 5 seconds in PF_Cmd_RENDER, classic, 16 bits, 1 x 1"},
        Misdeed{"FrameDiffers", "sizes", Verdict::Failed, "the same frame is another the second time"},
        Misdeed{"AnswersUnannounced", "unannounced-selectors", Verdict::Failed,
                "PF_Cmd_AUDIO_SETUP was answered with 4"},
        Misdeed{"LeaksWhenRefused", "refusals-sequence-flatten", Verdict::Failed,
                "HandleLeaked: a handle of 8 bytes made in PF_Cmd_SEQUENCE_FLATTEN was never disposed (refusing "
                "host_new_handle of 8 bytes in PF_Cmd_SEQUENCE_FLATTEN, time 2)"}),
    [](const auto& test) { return test.param.name; });

// What the host finds within a call, the report tells.
class EveryFinding : public FaultyEffect, public testing::WithParamInterface<FindingKind> {};

TEST_P(EveryFinding, IsNamed) {
  const std::string name(nameOf(GetParam()));
  std::string all;
  for (const CheckReport& report :
       validateSample(name, {"set-up", "about", "flatten", "flat-copy", "panel", "control", "sizes"})) {
    all += text(report);
  }
  EXPECT_THAT(all, HasSubstr(": " + name + ": "));
}

constexpr FindingKind kAllKinds[] = {
#define QUILTOR_KIND(name) FindingKind::name,
    QUILTOR_FINDING_KINDS(QUILTOR_KIND)
#undef QUILTOR_KIND
};

INSTANTIATE_TEST_SUITE_P(Each, EveryFinding, testing::ValuesIn(kAllKinds),
                         [](const auto& test) { return std::string(nameOf(test.param)); });

TEST_F(FaultyEffect, ThatCannotBeLoadedIsReportedOnceWithoutFurtherChecks) {
  for (const std::string& module : {std::string(NO_EFFECT_PATH), folder.path("nowhere.so")}) {
    const Reports reports = validate({.module = module, .program = QUILTOR_PROGRAM, .folder = folder.path()});
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports.front().verdict, Verdict::Failed);
    EXPECT_THAT(text(reports.front()), HasSubstr(module));
  }
}

}  // namespace
}  // namespace quiltor::standalone
