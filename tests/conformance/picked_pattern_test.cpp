#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/flat_sequence.h"
#include "tests/support/instance_test.h"
#include "tests/support/png_file.h"

namespace quiltor {
namespace {

using standalone::Instance;
using testing_support::flatSequence;
using testing_support::InstanceTest;
using testing_support::liveRecordOf;
using testing_support::selectionOf;
using testing_support::textsOf;
using testing_support::variedPixels;
using testing_support::writePng;

using Bytes = std::vector<unsigned char>;

// The pick travels inside the flat data and nowhere else.
class PickedPattern : public InstanceTest {
 protected:
  PickedPattern() { writePng(picturePath, 7, 3, 4, pixels); }
  Bytes flatWithPick() const { return flatSequence({{0, selectionOf(picturePath)}}); }

  const std::string picturePath = folder.path("weave.png");
  const std::vector<uint8_t> pixels = variedPixels(7, 3, 4);
};

TEST_F(PickedPattern, IsLoadedAtResetup) {
  EXPECT_EQ(instance.resetupFrom(flatWithPick()).code, 0);
  const SequenceData record = liveRecordOf(instance);
  EXPECT_EQ(record.patternImage->width, 7);
  EXPECT_EQ(record.patternImage->height, 3);
  EXPECT_EQ(record.patternImage->channels, 4);
  EXPECT_EQ(record.patternImage->pixels, pixels);
}

TEST_F(PickedPattern, FillsThePreview) {
  instance.resetupFrom(flatWithPick());
  const std::vector<uint8_t>& preview = *liveRecordOf(instance).previewImage;
  ASSERT_EQ(preview.size(), 10000u);
  EXPECT_THAT(std::vector(preview.begin(), preview.begin() + 4),
              testing::ElementsAre(pixels[2], pixels[1], pixels[0], pixels[3]));
}

TEST_F(PickedPattern, LivesOnThroughFlattenAndResetup) {
  instance.resetupFrom(flatWithPick());
  instance.flatten();
  EXPECT_EQ(instance.sequenceBytes(), flatWithPick());
  EXPECT_EQ(instance.resetup().code, 0);
  EXPECT_EQ(liveRecordOf(instance).patternImage->pixels, pixels);
}

TEST_F(PickedPattern, TravelsToTheHostsOtherCopies) {
  instance.resetupFrom(flatWithPick());
  Instance renderCopy(effect);
  EXPECT_EQ(renderCopy.resetupFrom(flatCopy()).code, 0);
  EXPECT_EQ(liveRecordOf(renderCopy).patternImage->pixels, pixels);
  EXPECT_EQ(liveRecordOf(instance).patternImage->pixels, pixels);
  EXPECT_NE(liveRecordOf(renderCopy).patternImage, liveRecordOf(instance).patternImage);
  renderCopy.shutDown();
}

TEST_F(PickedPattern, KeepsItsSelectionWhenItsFileIsGone) {
  std::filesystem::remove(picturePath);
  EXPECT_EQ(instance.resetupFrom(flatWithPick()).code, 0);
  EXPECT_EQ(textsOf(flatCopy())[0], selectionOf(picturePath));
}

TEST_F(PickedPattern, IsLoadedWithoutAskingTheHostToRedraw) {
  instance.resetupFrom(flatWithPick());
  EXPECT_EQ(host.refreshAllWindowsCount(), 0);
}

TEST_F(PickedPattern, IsNotLoadedFromASelectionInAnotherSlot) {
  instance.resetupFrom(flatSequence({{1, selectionOf(picturePath)}}));
  EXPECT_EQ(liveRecordOf(instance).patternImage->width, 50) << "the placeholder";
}

}  // namespace
}  // namespace quiltor
