#include "standalone/host/services/fault_plan.h"

#include <gtest/gtest.h>

#include <string>

#include "standalone/host/services/call_scope.h"

namespace quiltor::standalone {
namespace {

std::string strikesOf(FaultPlan& plan, std::initializer_list<HostCall> calls) {
  std::string strikes;
  for (const HostCall call : calls) strikes += plan.strikes(call) ? 'x' : '.';
  return strikes;
}

constexpr HostCall kA = HostCall::AcquireSuite, kB = HostCall::NewHandle;

TEST(FaultPlan, FailsNothingAtFirst) {
  FaultPlan plan;
  EXPECT_EQ(strikesOf(plan, {kA, kB, kA}), "...");
  EXPECT_FALSE(plan.struck());
}

TEST(FaultPlan, FailsTheKthCallOfAll) {
  FaultPlan plan;
  plan.failAt(1);
  EXPECT_EQ(strikesOf(plan, {kA, kB, kA}), ".x.");
  EXPECT_TRUE(plan.struck());
}

TEST(FaultPlan, FailsTheKthCallOfAClass) {
  FaultPlan plan;
  plan.failAt(kA, 1);
  EXPECT_EQ(strikesOf(plan, {kA, kB, kB, kA, kA}), "...x.");
}

TEST(FaultPlan, FailsEveryCallOfAClass) {
  FaultPlan plan;
  plan.failAlways(kB);
  EXPECT_EQ(strikesOf(plan, {kA, kB, kB}), ".xx");
}

TEST(FaultPlan, CountsAllCallsAndEachClass) {
  FaultPlan plan;
  strikesOf(plan, {kA, kB, kA});
  EXPECT_EQ(plan.count(), 3u);
  EXPECT_EQ(plan.count(kA), 2u);
}

TEST(FaultPlan, StartsAgainWithANewPlan) {
  FaultPlan plan;
  plan.failAt(0);
  strikesOf(plan, {kA});
  plan.failNever();
  EXPECT_FALSE(plan.struck());
  EXPECT_EQ(plan.count(), 0u);
  EXPECT_EQ(strikesOf(plan, {kA}), ".");
}

TEST(FaultPlan, ListsWhatIsAskedUntilANewPlanIsMade) {
  FaultPlan plan;
  EXPECT_FALSE(plan.strikes(kA, "before"));
  plan.list();
  CallScope call("PF_Cmd_ABOUT", nullptr);
  {
    const EnterCall enter(&call);
    EXPECT_FALSE(plan.strikes(kA, "first"));
    EXPECT_EQ(plan.refusal(kB, "second"), PF_Err_NONE);
  }
  EXPECT_EQ(plan.listed(), (std::vector<ListedCall>{{kA, "first", "PF_Cmd_ABOUT"}, {kB, "second", "PF_Cmd_ABOUT"}}));
  plan.failNever();
  EXPECT_FALSE(plan.strikes(kA, "after"));
  EXPECT_TRUE(plan.listed().empty());
}

TEST(FaultPlan, AnswersWithTheCallsOwnCodeUntilToldAnother) {
  FaultPlan plan;
  plan.failAlways(kA);
  EXPECT_EQ(plan.refusal(kA), PF_Err_BAD_CALLBACK_PARAM);
  EXPECT_EQ(plan.refusal(kA, "", PF_Err_OUT_OF_MEMORY), PF_Err_OUT_OF_MEMORY);
  plan.answerWith(4711);
  EXPECT_EQ(plan.refusal(kA, "", PF_Err_OUT_OF_MEMORY), 4711);
  EXPECT_EQ(plan.refusal(kB), PF_Err_NONE);
}

}  // namespace
}  // namespace quiltor::standalone
