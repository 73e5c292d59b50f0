// The module's own allocations are made to fail, one after the other. The program's operator new stands in for the
// library's everywhere, so it counts only while it is armed and only what the module's own code asks for.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"
#include "tests/support/png_file.h"

namespace {

constexpr size_t kNever = std::numeric_limits<size_t>::max();

thread_local const void* failingModule = nullptr;
thread_local size_t callsUntilFailure = kNever;
thread_local bool failureStruck = false;

const void* moduleOf(const void* address) {
  Dl_info info{};
  return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

void* allocate(size_t size, const void* caller) {
  if (failingModule && moduleOf(caller) == failingModule && callsUntilFailure-- == 0) {
    failingModule = nullptr;
    failureStruck = true;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(size_t size) { return allocate(size, __builtin_return_address(0)); }
void* operator new[](size_t size) { return allocate(size, __builtin_return_address(0)); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, size_t) noexcept { std::free(memory); }

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
    const void* moduleBase = moduleOf(reinterpret_cast<const void*>(effect.entryPoint()));
    Outcome outcome;
    for (size_t k = 0;; ++k) {
      Instance victim(effect);
      failingModule = moduleBase;
      callsUntilFailure = k;
      failureStruck = false;
      const PF_Err code = command(victim).code;
      failingModule = nullptr;
      if (!failureStruck) {
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
