#pragma once

#include <optional>
#include <string>

#include "platform/environment_override.h"
#include "tests/support/effect_test.h"

namespace quiltor::described_tests {

// A test of the effect with a description of its own.
class DescribedTest : public testing_support::EffectTest {
 protected:
  DescribedTest() : EffectTest(DESCRIBED_EFFECT_PATH) {}

  // Loads the effect with this description, in place of the one before.
  void describe(const std::string& text) {
    effect.shutDown();
    text_.emplace("QUILTOR_TEST_DESCRIPTION", text);
    ASSERT_TRUE(effect.setUp().succeeded());
  }

 private:
  std::optional<EnvironmentOverride> text_;
};

}  // namespace quiltor::described_tests
