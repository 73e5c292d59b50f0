#pragma once

#include <vector>

#include "tests/support/effect_test.h"

namespace quiltor::testing_support {

// A test with one application of the effect, not yet set up; shut down at the end.
class InstanceTest : public EffectTest {
 protected:
  InstanceTest() { effect.setUp(); }

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

  standalone::Instance instance{effect};
};

}  // namespace quiltor::testing_support
