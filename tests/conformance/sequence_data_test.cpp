#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"

namespace quiltor {
namespace {

using standalone::CallResult;
using standalone::HostCall;
using testing_support::flatSequence;
using testing_support::InstanceTest;
using testing_support::liveRecordOf;
using testing_support::setdownOf;
using testing_support::textsOf;

using Bytes = std::vector<unsigned char>;

class SequenceSetup : public InstanceTest {};
class SequenceResetup : public InstanceTest {};
class SequenceFlatten : public InstanceTest {};
class GetFlattened : public InstanceTest {};
class SequenceSetdown : public InstanceTest {};

std::array<int32_t, 256> someVisibility() {
  std::array<int32_t, 256> visibility{};
  for (int32_t index = 0; index < 256; ++index) visibility[static_cast<size_t>(index)] = index * 1000003 - 77;
  return visibility;
}

// --- Setup ---

TEST_F(SequenceSetup, MakesALiveRecordOf1312Bytes) {
  EXPECT_EQ(instance.setUp().code, 0);
  EXPECT_EQ(instance.sequenceBytes().size(), 1312u);
  const SequenceData record = liveRecordOf(instance);
  EXPECT_EQ(record.flat, 0);
  EXPECT_EQ(record.patternLoaded, 1);
}

TEST_F(SequenceSetup, TakesTheVisibilityFromTheDescription) {
  instance.setUp();
  const SequenceData record = liveRecordOf(instance);
  for (int index = 0; index < 256; ++index) {
    ASSERT_EQ(record.visibility[index], index == 2 ? 2 : 0) << "parameter " << index;
  }
}

TEST_F(SequenceSetup, LeavesEveryTextEmpty) {
  instance.setUp();
  for (const char* text : liveRecordOf(instance).text) {
    ASSERT_NE(text, nullptr);
    ASSERT_STREQ(text, "");
  }
}

TEST_F(SequenceSetup, ShowsThePlaceholderUntilAPatternIsPicked) {
  instance.setUp();
  const SequenceData record = liveRecordOf(instance);
  EXPECT_EQ(record.patternImage->width, 50);
  EXPECT_EQ(record.patternImage->height, 50);
  EXPECT_EQ(record.patternImage->channels, 3);
  EXPECT_EQ(record.previewImage->size(), 10000u);
}

TEST_F(SequenceSetup, Returns512AndStoresNothingWithoutMemory) {
  host.faults().failAlways(HostCall::NewHandle);
  EXPECT_EQ(instance.setUp().code, 512);
  EXPECT_EQ(instance.sequenceData(), nullptr);
}

TEST_F(SequenceSetup, Returns512AndStoresNothingWhenTheHandleCannotBeLocked) {
  host.faults().failAlways(HostCall::LockHandle);
  EXPECT_EQ(instance.setUp().code, 512);
  EXPECT_EQ(instance.sequenceData(), nullptr);
}

TEST_F(SequenceSetup, Returns516AndStoresNothingWithoutTheAdvancedApplicationSuite) {
  host.options().suitesNotOffered = {{"PF AE Adv App Suite", 1}};
  EXPECT_EQ(instance.setUp().code, 516);
  EXPECT_EQ(instance.sequenceData(), nullptr);
}

TEST_F(SequenceSetup, DoesNotAskTheHostToRedraw) {
  instance.setUp();
  EXPECT_EQ(host.refreshAllWindowsCount(), 0);
}

// --- Get flattened ---

TEST_F(GetFlattened, Has1440BytesWhenAllTextsAreEmpty) {
  instance.setUp();
  EXPECT_EQ(flatCopy().size(), 1440u);
}

TEST_F(GetFlattened, IsTheDocumentedBytes) {
  const Bytes flat = flatSequence({{0, "/none.png*****A*****B"}, {7, "seven"}, {31, "last"}}, someVisibility());
  instance.resetupFrom(flat);
  EXPECT_EQ(flatCopy(), flat);
}

TEST_F(GetFlattened, LeavesTheLiveDataAndItsImagesInPlace) {
  instance.setUp();
  const PF_Handle handle = instance.sequenceData();
  const Bytes before = instance.sequenceBytes();
  const SequenceData record = liveRecordOf(instance);
  const std::vector<uint8_t> pixels = record.patternImage->pixels;

  flatCopy();

  EXPECT_EQ(instance.sequenceData(), handle);
  EXPECT_EQ(instance.sequenceBytes(), before);
  EXPECT_EQ(record.patternImage->pixels, pixels);
}

TEST_F(GetFlattened, OfFlatDataStoresNullAndAllocatesNothing) {
  instance.setUp();
  instance.flatten();
  host.faults().failNever();
  Bytes flat{1};
  const CallResult result = instance.getFlattened(flat);
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out.sequence_data, nullptr);
  EXPECT_EQ(host.faults().count(HostCall::NewHandle), 0u);
  EXPECT_TRUE(flat.empty());
  instance.resetup();
}

TEST_F(GetFlattened, LeavesNoLiveHandleInTheOutputRecordWhenItFails) {
  instance.setUp();
  host.faults().failAlways(HostCall::NewHandle);
  Bytes flat;
  const CallResult result = instance.getFlattened(flat);
  EXPECT_EQ(result.code, 512);
  EXPECT_EQ(result.out.sequence_data, nullptr);
}

TEST_F(GetFlattened, WithoutDataReturns512) {
  Bytes flat;
  EXPECT_EQ(instance.getFlattened(flat).code, 512);
  EXPECT_TRUE(flat.empty());
}

// --- Flatten ---

TEST_F(SequenceFlatten, ReplacesTheLiveDataByTheBytesThatACopyWouldHave) {
  const Bytes flat = flatSequence({{0, "/none.png*****A*****B"}, {3, "three"}}, someVisibility());
  instance.resetupFrom(flat);
  const PF_Handle live = instance.sequenceData();
  const CallResult result = instance.flatten();
  EXPECT_EQ(result.code, 0);
  EXPECT_NE(result.out.sequence_data, live);
  EXPECT_EQ(result.in.sequence_data, nullptr);
  EXPECT_EQ(instance.sequenceBytes(), flat);
}

TEST_F(SequenceFlatten, DisposesTheLiveHandle) {
  instance.setUp();
  const std::size_t before = host.liveHandleCount();
  instance.flatten();
  EXPECT_EQ(host.liveHandleCount(), before);
}

TEST_F(SequenceFlatten, OfFlatDataReturns0AndAllocatesNothing) {
  instance.setUp();
  instance.flatten();
  const PF_Handle flat = instance.sequenceData();
  const Bytes before = instance.sequenceBytes();
  host.faults().failNever();
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_FLATTEN}).code, 0);
  EXPECT_EQ(host.faults().count(HostCall::NewHandle), 0u);
  EXPECT_EQ(instance.sequenceData(), flat);
  EXPECT_EQ(instance.sequenceBytes(), before);
}

TEST_F(SequenceFlatten, WithoutDataReturns512) {
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_FLATTEN}).code, 512);
  EXPECT_EQ(instance.sequenceData(), nullptr);
}

TEST_F(SequenceFlatten, KeepsTheLiveDataWhenItFails) {
  instance.setUp();
  const Bytes before = instance.sequenceBytes();
  host.faults().failAlways(HostCall::NewHandle);
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_FLATTEN}).code, 512);
  EXPECT_EQ(instance.sequenceBytes(), before);
}

// --- Resetup ---

TEST_F(SequenceResetup, OfFlatDataRestoresVisibilityAndTexts) {
  EXPECT_EQ(instance.resetupFrom(flatSequence({{1, "one"}, {31, "thirty-one"}}, someVisibility())).code, 0);
  const SequenceData record = liveRecordOf(instance);
  EXPECT_THAT(record.visibility, testing::ElementsAreArray(someVisibility()));
  EXPECT_STREQ(record.text[0], "");
  EXPECT_STREQ(record.text[1], "one");
  EXPECT_STREQ(record.text[31], "thirty-one");
  EXPECT_EQ(record.flat, 0);
  EXPECT_EQ(record.patternLoaded, 1);
}

TEST_F(SequenceResetup, DisposesTheFlatHandle) {
  const std::size_t before = host.liveHandleCount();
  const CallResult result = instance.resetupFrom(flatSequence({}));
  EXPECT_EQ(result.in.sequence_data, nullptr);
  EXPECT_EQ(host.liveHandleCount(), before + 1);
}

TEST_F(SequenceResetup, OfLiveDataHandsItBack) {
  instance.setUp();
  const PF_Handle handle = instance.sequenceData();
  const Bytes before = instance.sequenceBytes();
  host.faults().failNever();
  const CallResult result = instance.resetup();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out.sequence_data, handle);
  EXPECT_EQ(instance.sequenceBytes(), before);
  EXPECT_EQ(host.faults().count(HostCall::NewHandle), 0u);
}

TEST_F(SequenceResetup, OfNothingSetsUpAfresh) {
  EXPECT_EQ(instance.resetupFromNull().code, 0);
  EXPECT_EQ(liveRecordOf(instance).visibility[2], 2);
  EXPECT_EQ(flatCopy().size(), 1440u);
}

TEST_F(SequenceResetup, WorksOnAnotherThread) {
  CallResult result;
  std::thread([&] { result = instance.resetupFrom(flatSequence({{4, "four"}})); }).join();
  EXPECT_EQ(result.code, 0);
  EXPECT_STREQ(liveRecordOf(instance).text[4], "four");
}

TEST_F(SequenceResetup, CutsATextAtAZeroByte) {
  instance.resetupFrom(flatSequence({{2, std::string("ab\0cd", 5)}}));
  EXPECT_EQ(textsOf(flatCopy())[2], "ab");
}

// --- Setdown ---

TEST_F(SequenceSetdown, OfLiveDataLeavesNothing) {
  const std::size_t before = host.liveHandleCount();
  instance.setUp();
  const CallResult result = instance.shutDown();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out.sequence_data, nullptr);
  EXPECT_EQ(host.liveHandleCount(), before);
}

TEST_F(SequenceSetdown, OfFlatDataLeavesNothing) {
  const std::size_t before = host.liveHandleCount();
  instance.setUp();
  instance.flatten();
  EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_SETDOWN}).code, 0);
  EXPECT_EQ(host.liveHandleCount(), before);
}

TEST_F(SequenceSetdown, OfNothingReturns0) { EXPECT_EQ(instance.call({.selector = PF_Cmd_SEQUENCE_SETDOWN}).code, 0); }

TEST_F(SequenceSetdown, LeavesDataThatCannotBeLockedToTheHost) {
  instance.setUp();
  const PF_Handle handle = instance.detachSequenceData();
  host.faults().failAlways(HostCall::LockHandle);
  const CallResult result = effect.call(setdownOf(handle));
  EXPECT_EQ(result.code, 512);
  EXPECT_EQ(result.out.sequence_data, handle);
  host.faults().failNever();
  EXPECT_EQ(effect.call(setdownOf(handle)).code, 0);
}

TEST_F(SequenceSetdown, Returns516WithoutTheHandleSuiteAndWorksWhenItIsBack) {
  instance.setUp();
  const PF_Handle handle = instance.detachSequenceData();
  host.faults().failAlways(HostCall::AcquireSuite);
  EXPECT_EQ(effect.call(setdownOf(handle)).code, 516);
  host.faults().failNever();
  EXPECT_EQ(effect.call(setdownOf(handle)).code, 0);
}

}  // namespace
}  // namespace quiltor
