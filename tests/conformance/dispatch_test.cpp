#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::HostCall;
using testing_support::EffectTest;
using testing_support::InstanceTest;

// Selectors that mean nothing to the effect get records full of nonsense: whoever follows a pointer in them crashes.
class IgnoredSelector : public EffectTest, public testing::WithParamInterface<A_long> {};

TEST_P(IgnoredSelector, Returns0AndTouchesNothing) {
  struct Records {
    PF_InData in;
    PF_OutData out;
  } records, before;
  std::memset(&records, 0xA5, sizeof records);
  std::memcpy(&before, &records, sizeof records);
  void* const nowhere = reinterpret_cast<void*>(uintptr_t{0xA5A5});

  EXPECT_EQ(effect.entryPoint()(GetParam(), &records.in, &records.out, static_cast<PF_ParamDef**>(nowhere),
                                static_cast<PF_EffectWorld*>(nowhere), nowhere),
            0);
  EXPECT_EQ(std::memcmp(&records, &before, sizeof records), 0);
}

INSTANTIATE_TEST_SUITE_P(OutOfRange, IgnoredSelector,
                         testing::Values(-1, 29, 1000, std::numeric_limits<A_long>::min(),
                                         std::numeric_limits<A_long>::max()));
INSTANTIATE_TEST_SUITE_P(WithoutHandler, IgnoredSelector,
                         testing::Values(PF_Cmd_UNUSED_0, PF_Cmd_FRAME_SETUP, PF_Cmd_FRAME_SETDOWN,
                                         PF_Cmd_GET_EXTERNAL_DEPENDENCIES, PF_Cmd_COMPLETELY_GENERAL,
                                         PF_Cmd_QUERY_DYNAMIC_FLAGS, PF_Cmd_AUDIO_RENDER, PF_Cmd_AUDIO_SETUP,
                                         PF_Cmd_AUDIO_SETDOWN, PF_Cmd_ARBITRARY_CALLBACK, PF_Cmd_RESERVED1,
                                         PF_Cmd_RESERVED2, PF_Cmd_RESERVED3));

// One selector each; the error comes from the first suite that its handler asks for.
class SelectorWithoutSuites : public InstanceTest, public testing::WithParamInterface<A_long> {};

TEST_P(SelectorWithoutSuites, Returns516) {
  instance.setUp();
  host.faults().failAlways(HostCall::AcquireSuite);
  EXPECT_EQ(instance.call({.selector = GetParam()}).code, 516);
}

INSTANTIATE_TEST_SUITE_P(EachHandler, SelectorWithoutSuites,
                         testing::Values(PF_Cmd_ABOUT, PF_Cmd_GLOBAL_SETUP, PF_Cmd_GLOBAL_SETDOWN,
                                         PF_Cmd_SEQUENCE_SETUP, PF_Cmd_SEQUENCE_RESETUP, PF_Cmd_SEQUENCE_FLATTEN,
                                         PF_Cmd_GET_FLATTENED_SEQUENCE_DATA));

// The records that these selectors need are missing.
class SelectorWithoutExtra : public InstanceTest, public testing::WithParamInterface<A_long> {};

TEST_P(SelectorWithoutExtra, Returns516) {
  instance.setUp();
  EXPECT_EQ(instance.call({.selector = GetParam()}).code, 516);
}

INSTANTIATE_TEST_SUITE_P(EachRenderSelector, SelectorWithoutExtra,
                         testing::Values(PF_Cmd_RENDER, PF_Cmd_SMART_PRE_RENDER, PF_Cmd_SMART_RENDER));

TEST_F(EffectTest, WithoutTheHostsRecordsReturns516) {
  PF_InData in{};
  PF_OutData out{};
  EXPECT_EQ(effect.entryPoint()(PF_Cmd_GLOBAL_SETUP, nullptr, &out, nullptr, nullptr, nullptr), 516);
  EXPECT_EQ(effect.entryPoint()(PF_Cmd_GLOBAL_SETUP, &in, nullptr, nullptr, nullptr, nullptr), 516);
}

}  // namespace
}  // namespace quiltor
