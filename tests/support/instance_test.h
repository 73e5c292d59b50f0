#pragma once

#include <vector>

#include "tests/support/effect_test.h"

namespace quiltor::testing_support {

// Sequence setdown of this handle.
inline standalone::Call setdownOf(PF_Handle handle) {
  return {.selector = PF_Cmd_SEQUENCE_SETDOWN,
          .prepare = [handle](PF_InData& in, PF_OutData& out) { in.sequence_data = out.sequence_data = handle; }};
}

// A test with one application of the effect, not yet set up; shut down at the end.
class InstanceTest : public EffectTest {
 protected:
  explicit InstanceTest(A_AppID appId = kAppId_AfterEffects) : instance(setUpIn(appId)) {}

  void TearDown() override {
    host.faults().failNever();
    instance.shutDown();
    EffectTest::TearDown();
  }

  std::vector<unsigned char> flatCopy() {
    std::vector<unsigned char> flat;
    EXPECT_EQ(instance.getFlattened(flat).code, 0);
    return flat;
  }

  standalone::Instance instance;

 private:
  // An instance knows the parameters that the effect has when it is made.
  standalone::Effect& setUpIn(A_AppID appId) {
    host.options().appId = appId;
    effect.setUp();
    return effect;
  }
};

}  // namespace quiltor::testing_support
