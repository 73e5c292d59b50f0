// Every call of these commands to the host is made to fail once, one after the other. A failing command leaves nothing
// behind, and the same command works when it is called again.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using standalone::Effect;
using standalone::Instance;
using testing_support::detachData;
using testing_support::EffectTest;
using testing_support::flatSequence;
using testing_support::setdownOf;

using Bytes = std::vector<unsigned char>;

class FaultSweep : public EffectTest {
 protected:
  // Runs a command on a fresh subject for each k; returns how many host calls it makes when nothing fails.
  template <class Subject>
  size_t sweep(const std::function<std::unique_ptr<Subject>()>& prepare,
               const std::function<CallResult(Subject&)>& command) {
    for (size_t k = 0;; ++k) {
      const std::unique_ptr<Subject> subject = prepare();
      host.faults().failAt(k);
      const CallResult result = command(*subject);
      const bool struck = host.faults().struck();
      host.faults().failNever();
      EXPECT_EQ(host.suiteBalance(), 0) << "host call " << k;
      if (!result.succeeded()) {
        EXPECT_TRUE(result.code == 512 || result.code == 516) << result.code << " at host call " << k;
        EXPECT_EQ(command(*subject).code, 0) << "again after host call " << k;
      }
      subject->shutDown();
      EXPECT_EQ(host.findings().text(), "") << "host call " << k;
      host.findings().clear();
      if (!struck) {
        EXPECT_TRUE(result.succeeded()) << result.code;
        return k;
      }
    }
  }

  size_t sweepInstance(const std::function<void(Instance&)>& prepare,
                       const std::function<CallResult(Instance&)>& command) {
    effect.setUp();
    return sweep<Instance>(
        [&] {
          auto instance = std::make_unique<Instance>(effect);
          prepare(*instance);
          return instance;
        },
        command);
  }
};

Bytes someFlatData() { return flatSequence({{0, "/none.png*****A*****B"}, {31, "last"}}); }

TEST_F(FaultSweep, OverGlobalSetup) {
  EXPECT_GT(sweep<Effect>([&] { return std::make_unique<Effect>(host, module); },
                          [](Effect& fresh) { return fresh.globalSetup(); }),
            5u);
}

TEST_F(FaultSweep, OverParameterSetup) {
  EXPECT_GT(sweep<Effect>(
                [&] {
                  auto fresh = std::make_unique<Effect>(host, module);
                  fresh->globalSetup();
                  return fresh;
                },
                [](Effect& fresh) { return fresh.paramsSetup(); }),
            10u);
}

TEST_F(FaultSweep, OverSequenceSetup) {
  EXPECT_GT(sweepInstance([](Instance&) {}, [](Instance& instance) { return instance.setUp(); }), 4u);
}

TEST_F(FaultSweep, OverSequenceResetup) {
  EXPECT_GT(sweepInstance(
                [](Instance& instance) {
                  instance.setUp();
                  instance.flatten();
                },
                [](Instance& instance) { return instance.resetup(); }),
            5u);
}

TEST_F(FaultSweep, OverSequenceResetupOfLoadedData) {
  EXPECT_GT(sweepInstance([](Instance&) {},
                          [](Instance& instance) {
                            return instance.sequenceData() ? instance.resetup() : instance.resetupFrom(someFlatData());
                          }),
            5u);
}

TEST_F(FaultSweep, OverSequenceFlatten) {
  EXPECT_GT(sweepInstance([](Instance& instance) { instance.resetupFrom(someFlatData()); },
                          [](Instance& instance) { return instance.flatten(); }),
            4u);
}

TEST_F(FaultSweep, OverGetFlattened) {
  EXPECT_GT(sweepInstance([](Instance& instance) { instance.resetupFrom(someFlatData()); },
                          [](Instance& instance) {
                            Bytes flat;
                            return instance.getFlattened(flat);
                          }),
            4u);
}

TEST_F(FaultSweep, OverSequenceSetdown) {
  PF_Handle handle = nullptr;
  EXPECT_GT(sweepInstance(
                [&](Instance& instance) {
                  instance.setUp();
                  handle = detachData(instance);
                },
                [&](Instance&) { return effect.call(setdownOf(handle)); }),
            2u);
}

TEST_F(FaultSweep, OverSetdownOfFlatData) {
  PF_Handle handle = nullptr;
  EXPECT_GT(sweepInstance(
                [&](Instance& instance) {
                  instance.setUp();
                  instance.flatten();
                  handle = detachData(instance);
                },
                [&](Instance&) { return effect.call(setdownOf(handle)); }),
            2u);
}

TEST_F(FaultSweep, OverAbout) {
  effect.setUp();
  EXPECT_EQ(sweep<Effect>([&] { return std::make_unique<Effect>(host, module); },
                          [](Effect& fresh) { return fresh.about(); }),
            2u);
}

}  // namespace
}  // namespace quiltor
