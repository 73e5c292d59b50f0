#include "standalone/host/services/handle_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quiltor::standalone {
namespace {

struct HandleTableTest : testing::Test {
  Findings findings;
  HandleTable handles{findings};
};

TEST_F(HandleTableTest, AHandlePointsAtTheAddressOfItsData) {
  const PF_Handle handle = handles.make(8);
  EXPECT_EQ(handles.lock(handle), *handle);
  EXPECT_EQ(handles.size(handle), 8u);
}

TEST_F(HandleTableTest, FreshContentIsNotZero) {
  for (const unsigned char byte : handles.bytes(handles.make(64))) EXPECT_NE(byte, 0);
}

TEST_F(HandleTableTest, LocksNest) {
  const PF_Handle handle = handles.make(8);
  handles.lock(handle);
  handles.lock(handle);
  handles.unlock(handle);
  handles.unlock(handle);
  EXPECT_TRUE(findings.empty()) << findings.text();
  handles.unlock(handle);
  EXPECT_TRUE(findings.has(FindingKind::HandleUnlockedTooOften));
}

TEST_F(HandleTableTest, AnImpossibleSizeIsNullAndNoFinding) {
  EXPECT_EQ(handles.make(std::numeric_limits<A_HandleSize>::max()), nullptr);
  EXPECT_EQ(handles.make(std::numeric_limits<A_HandleSize>::max() / 4), nullptr);
  EXPECT_TRUE(findings.empty());
}

TEST_F(HandleTableTest, NullIsHarmlessAndRecorded) {
  EXPECT_EQ(handles.lock(nullptr), nullptr);
  EXPECT_EQ(handles.size(nullptr), 0u);
  handles.unlock(nullptr);
  handles.dispose(nullptr);
  ASSERT_EQ(findings.all().size(), 4u);
  EXPECT_EQ(findings.all()[0].kind, FindingKind::BadArgument);
}

TEST_F(HandleTableTest, AHandleOfNoBytesIsLegal) {
  const PF_Handle handle = handles.make(0);
  EXPECT_NE(handles.lock(handle), nullptr);
  EXPECT_EQ(handles.size(handle), 0u);
}

TEST_F(HandleTableTest, AWriteBeforeTheDataIsFoundAtTheDisposal) {
  const PF_Handle handle = handles.make(8);
  static_cast<unsigned char*>(*handle)[-1] ^= 1;
  handles.dispose(handle);
  EXPECT_TRUE(findings.has(FindingKind::HandleOverrun));
}

TEST_F(HandleTableTest, GuardsLargeMemoryAndStartsItOnACacheLine) {
  const PF_Handle handle = handles.make(kLargeMemory + 1);
  ASSERT_NE(handle, nullptr);
  auto* const data = static_cast<unsigned char*>(*handle);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(data) % 64, 0U);
  EXPECT_NE(data[kLargeMemory], 0);
  data[kLargeMemory + 1] ^= 1;
  handles.dispose(handle);
  EXPECT_TRUE(findings.has(FindingKind::HandleOverrun));
}

TEST_F(HandleTableTest, GivesMemoryOutAgainAsItIsWhenToldTo) {
  handles.recycle();
  const PF_Handle first = handles.make(8);
  static_cast<unsigned char*>(handles.lock(first))[0] = 7;
  void* const memory = *first;
  handles.unlock(first);
  handles.dispose(first);
  EXPECT_NE(*handles.make(9), memory);
  const PF_Handle second = handles.make(8);
  EXPECT_EQ(*second, memory);
  EXPECT_EQ(handles.bytes(second)[0], 7);
  EXPECT_TRUE(findings.empty()) << findings.text();
}

TEST_F(HandleTableTest, CountsLiveHandles) {
  const PF_Handle handle = handles.make(8);
  handles.make(8);
  EXPECT_EQ(handles.liveCount(), 2u);
  handles.dispose(handle);
  EXPECT_EQ(handles.liveCount(), 1u);
}

}  // namespace
}  // namespace quiltor::standalone
