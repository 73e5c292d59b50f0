#include <gtest/gtest.h>

#include <stdexcept>

#include "host/global_data.h"
#include "hostapi/suites_pf.h"
#include "tests/support/effect_test.h"

namespace quiltor {
namespace {

using standalone::HostCall;
using testing_support::EffectTest;

struct CountedObject : OwnedObject {
  explicit CountedObject(int& destroyed) : destroyed_(destroyed) {}
  ~CountedObject() noexcept(false) override { ++destroyed_; }
  int& destroyed_;
};

struct ThrowingObject : CountedObject {
  using CountedObject::CountedObject;
  ~ThrowingObject() noexcept(false) override { throw std::runtime_error("the object broke"); }
};

class GlobalSetdown : public EffectTest {
 protected:
  GlobalSetdown() { effect.globalSetup(); }
  GlobalData& globalData() { return *static_cast<GlobalData*>(*effect.globalData()); }
};

TEST_F(GlobalSetdown, DisposesTheGlobalData) {
  EXPECT_EQ(host.liveHandleCount(), 1u);
  EXPECT_EQ(effect.shutDown().code, 0);
  EXPECT_EQ(host.liveHandleCount(), 0u);
}

TEST_F(GlobalSetdown, DestroysTheOwnedObject) {
  int destroyed = 0;
  globalData().owned = new CountedObject(destroyed);
  EXPECT_EQ(effect.shutDown().code, 0);
  EXPECT_EQ(destroyed, 1);
}

TEST_F(GlobalSetdown, SwallowsWhatTheOwnedObjectThrows) {
  int destroyed = 0;
  globalData().owned = new ThrowingObject(destroyed);
  EXPECT_EQ(effect.shutDown().code, 0);
  EXPECT_EQ(destroyed, 1);
  EXPECT_EQ(host.liveHandleCount(), 0u);
}

TEST_F(GlobalSetdown, DisposesTheAuxiliaryHandle) {
  const void* table = nullptr;
  PF_Handle auxiliary = nullptr;
  effect.call({.selector = PF_Cmd_UNUSED_0, .prepare = [&](PF_InData& in, PF_OutData&) {
                 in.pica_basicP->AcquireSuite(kPFHandleSuite, kPFHandleSuiteVersion2, &table);
                 auxiliary = static_cast<const PF_HandleSuite1*>(table)->host_new_handle(16);
                 in.pica_basicP->ReleaseSuite(kPFHandleSuite, kPFHandleSuiteVersion2);
               }});
  ASSERT_NE(auxiliary, nullptr);
  globalData().auxiliary = auxiliary;
  EXPECT_EQ(host.liveHandleCount(), 2u);
  EXPECT_EQ(effect.shutDown().code, 0);
  EXPECT_EQ(host.liveHandleCount(), 0u);
}

TEST_F(GlobalSetdown, DisposesGlobalDataThatCannotBeLocked) {
  host.faults().failAlways(HostCall::LockHandle);
  EXPECT_EQ(effect.shutDown().code, 0);
  EXPECT_EQ(host.liveHandleCount(), 0u);
}

TEST_F(GlobalSetdown, WithoutGlobalDataAsksTheHostForNothing) {
  PF_InData in{};
  PF_OutData out{};
  EXPECT_EQ(effect.entryPoint()(PF_Cmd_GLOBAL_SETDOWN, &in, &out, nullptr, nullptr, nullptr), 0);
}

}  // namespace
}  // namespace quiltor
