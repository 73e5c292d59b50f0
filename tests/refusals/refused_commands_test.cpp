// Every selector but the frames', with one thing refused at a time: the promised answer, nothing held, the same command
// again, and a right frame afterwards.
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/validate/commands.h"
#include "standalone/validate/refusal_sweep.h"
#include "tests/refusals/refusal_rules.h"
#include "tests/refusals/render_lock.h"
#include "tests/support/effect_test.h"
#include "tests/support/png_file.h"

namespace quiltor::refusal_tests {
namespace {

using standalone::CallResult;
using standalone::Command;
using standalone::Instance;
using standalone::Refusal;
using standalone::Subject;
using standalone::World;
using standalone::WorldFormat;

struct Case {
  Command command;
  A_long application;
  bool picks = false;  // a click opens the gallery, where the user picks a picture
};

std::string nameOf(const Case& one) {
  std::string name = one.command.name;
  std::erase(name, '-');
  return name + (one.picks ? "ThatPicks" : "") + (one.application == kAppId_PremierePro ? "InTheVideoEditor" : "");
}

void PrintTo(const Case& one, std::ostream* out) { *out << nameOf(one); }

std::vector<Case> everyCase() {
  std::vector<Case> all;
  for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
    for (const Command& command : standalone::commands()) all.push_back({command, application});
  }
  for (const Command& command : standalone::commands()) {
    if (command.name == "control-click") all.push_back({command, kAppId_AfterEffects, true});
  }
  return all;
}

class RefusedCommand : public testing_support::EffectTest, public testing::WithParamInterface<Case> {
 protected:
  RefusedCommand() {
    host.options().appId = application;
    host.options().runScript = [this](const std::string&) { return outcome; };
    if (GetParam().picks) {
      const std::string picture = folder.path("weave.png"), library = folder.path("library");
      testing_support::writePng(picture, 7, 3, 4, testing_support::variedPixels(7, 3, 4));
      std::ofstream(userFolder() + "/libpaths.txt", std::ios::binary) << "Mine**" << library << "\r\n";
      outcome.result = picture + "*Label*Name*" + library + "*";
    }
    host.faults().answerWith(kHostsOwnCode);
  }

  std::vector<unsigned char> frameOf(standalone::Effect& rendering) {
    const World layer = picture();
    Instance instance(rendering);
    EXPECT_EQ(instance.setUp().code, 0);
    const auto result = instance.render({.input = &layer});
    EXPECT_EQ(result.code, 0);
    return result.output ? result.output->packed() : std::vector<unsigned char>();
  }

  std::vector<unsigned char> freshFrame() {
    standalone::Effect fresh(host, module);
    EXPECT_EQ(fresh.setUp().code, 0);
    return frameOf(fresh);
  }

  World picture() const {
    World layer(application == kAppId_PremierePro ? WorldFormat::Bgra8 : WorldFormat::Argb8, 5, 3);
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x < 5; ++x) layer.set(x, y, {x / 4.0, y / 2.0, 0.5, 1});
    return layer;
  }

  void expectAnswer(const CallResult& answer, const Expected& expected) {
    EXPECT_EQ(answer.code, codeOf(expected.answer));
    const bool saysItsOwn = answer.succeeded() && *expected.message == '\0';
    EXPECT_EQ(answer.message(), saysItsOwn ? ownMessage : expected.message);
    EXPECT_EQ((answer.out.out_flags & PF_OutFlag_DISPLAY_ERROR_MESSAGE) != 0, *expected.message != '\0');
  }

  A_long application = GetParam().application;
  standalone::ScriptOutcome outcome;
  std::string ownMessage;  // what the call says when nothing is refused
};

TEST_P(RefusedCommand, GivesTheDocumentedAnswerAndHoldsNothing) {
  const Command& command = GetParam().command;
  const auto expectedFrame = freshFrame();
  ASSERT_FALSE(expectedFrame.empty());

  Subject subject;
  prepare(subject, host, module, command);
  CallResult answer = command.call(subject);
  EXPECT_EQ(answer.code, 0);
  ownMessage = answer.message();
  const auto examine = [&](const Refusal& refusal, bool came) {
    SCOPED_TRACE("refused: " + refusal.text());
    EXPECT_TRUE(came);
    const Expected expected = expectedFor(refusal, application);
    expectAnswer(answer, expected);
    if (GetParam().picks && answer.succeeded()) {
      using standalone::HostCall;
      const bool heard = refusal.call.kind != HostCall::ExecuteScript && refusal.call.kind != HostCall::LockMemory;
      EXPECT_EQ((answer.out.out_flags & PF_OutFlag_FORCE_RERENDER) != 0, heard);
    }
    EXPECT_EQ(host.suiteBalance(), 0);
    EXPECT_EQ(host.findings().text(), "");
    EXPECT_TRUE(renderLockIsFree());

    const bool ranAgain = !answer.succeeded();
    if (ranAgain) {
      answer = command.call(subject);
      EXPECT_EQ(answer.code, 0) << "again";
    }
    // A global setup that could not lock its data lives without any, and draws nothing.
    const bool lives = command.name.find("global") == std::string::npos && command.name != "params-setup";
    EXPECT_EQ(lives ? frameOf(*subject.effect) : expectedFrame, expectedFrame);
    subject.shutDown();
    EXPECT_EQ(host.findings().text(), "");
    EXPECT_EQ(host.liveHandleCount(), 0u);
    EXPECT_EQ(freshFrame(), expectedFrame);
    host.findings().clear();
  };
  const size_t refusals = standalone::sweepRefusals(host, {.announce = [](const Refusal&) {},
                                                           .prepare = [&] { prepare(subject, host, module, command); },
                                                           .command = [&] { answer = command.call(subject); },
                                                           .examine = examine});
  subject.shutDown();
  std::cout << refusals << " refusals\n";
  RecordProperty("refusals", static_cast<int>(refusals));
  const bool asksNothing =
      application == kAppId_PremierePro &&
      (command.name == "about" || command.name == "control-click" || command.name == "options-dialog");
  EXPECT_TRUE(refusals >= 2 || asksNothing) << refusals;
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedCommand, testing::ValuesIn(everyCase()),
                         [](const auto& test) { return nameOf(test.param); });

}  // namespace
}  // namespace quiltor::refusal_tests
