// The module's own allocations are made to fail, one after the other.
#include <gtest/gtest.h>

#include "tests/conformance/failing_allocation.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"
#include "tests/support/png_file.h"

namespace quiltor {
namespace {

using standalone::Instance;
using testing_support::flatSequence;
using testing_support::InstanceTest;
using testing_support::selectionOf;

class FailingAllocation : public InstanceTest {
 protected:
  struct Outcome {
    size_t refused = 0;   // answered 512
    size_t survived = 0;  // answered 0: a picture that cannot be decoded is no reason to refuse an instance
  };

  // Runs the command on a fresh instance for each k, until the module makes fewer than k + 1 allocations.
  template <class Command>
  Outcome sweep(Command command) {
    Outcome outcome;
    for (size_t k = 0;; ++k) {
      Instance victim(effect);
      PF_Err code = 0;
      bool struck = false;
      {
        const ModuleAllocationFailure failure(reinterpret_cast<const void*>(effect.entryPoint()), k);
        code = command(victim).code;
        struck = failure.struck();
      }
      if (!struck) {
        EXPECT_EQ(code, 0);
        victim.shutDown();
        return outcome;
      }
      EXPECT_TRUE(code == 0 || code == 512) << code << " after allocation " << k;
      ++(code == 0 ? outcome.survived : outcome.refused);
      victim.shutDown();
      EXPECT_EQ(host.liveHandleCount(), 1u) << "allocation " << k << ": only the global data is left";
      EXPECT_EQ(host.findings().text(), "") << "allocation " << k;
    }
  }
};

TEST_F(FailingAllocation, InSequenceSetupReturns512AndLeavesNothing) {
  const Outcome outcome = sweep([](Instance& victim) { return victim.setUp(); });
  EXPECT_GT(outcome.refused, 30u);
  EXPECT_EQ(outcome.survived, 0u);
}

TEST_F(FailingAllocation, InSequenceResetupLeavesNothing) {
  const std::string path = folder.path("picture.png");
  testing_support::writePng(path, 2, 2, 3, testing_support::variedPixels(2, 2, 3));
  const std::vector<unsigned char> flat = flatSequence({{0, selectionOf(path)}, {9, std::string(100, 'x')}});
  EXPECT_GT(sweep([&](Instance& victim) { return victim.resetupFrom(flat); }).refused, 30u);
}

}  // namespace
}  // namespace quiltor
