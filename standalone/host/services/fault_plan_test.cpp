#include "standalone/host/services/fault_plan.h"

#include <gtest/gtest.h>

#include <string>

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

}  // namespace
}  // namespace quiltor::standalone
