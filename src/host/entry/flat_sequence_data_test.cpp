#include "host/entry/flat_sequence_data.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "host/sequence_form.h"

namespace quiltor {
namespace {

using Bytes = std::vector<uint8_t>;

// A live record whose parts belong to the test.
struct LiveRecord {
  LiveRecord() {
    std::memset(&data, 0, sizeof data);
    for (int index = 0; index < 256; ++index) data.visibility[index] = index - 100;
    data.patternLoaded = 1;
    data.patternImage = &pattern;
    data.previewImage = &preview;
    for (size_t slot = 0; slot < kTextSlots; ++slot) data.text[slot] = texts[slot].data();
  }
  void setText(size_t slot, const std::string& text) {
    texts[slot] = text;
    data.text[slot] = texts[slot].data();
  }
  Bytes flat() const {
    Bytes bytes(flatSize(data), 0xEE);
    writeFlat(data, bytes);
    return bytes;
  }
  Bytes bytes() const {
    Bytes copy(sizeof data);
    std::memcpy(copy.data(), &data, sizeof data);
    return copy;
  }

  SequenceData data;
  PatternImage pattern;
  std::vector<uint8_t> preview;
  std::array<std::string, kTextSlots> texts;
};

Bytes flatWithTexts() {
  LiveRecord record;
  record.setText(0, "/patterns/oak.png*****FOLDER*****Woods");
  record.setText(5, std::string(300, 'x'));
  record.setText(31, "last");
  return record.flat();
}

TEST(FlatSequenceData, Has1440BytesWhenAllTextsAreEmpty) { EXPECT_EQ(LiveRecord().flat().size(), 1440u); }

TEST(FlatSequenceData, HoldsNoPointers) {
  const Bytes flat = flatWithTexts();
  EXPECT_EQ(flat[1024], 1);
  for (size_t at = 1025; at < 1312; ++at) ASSERT_EQ(flat[at], 0) << "byte " << at;
}

TEST(FlatSequenceData, WritesLengthsLowByteFirst) {
  const Bytes flat = flatWithTexts();
  const size_t slot1 = 1312 + 4 + 38;
  EXPECT_EQ(Bytes(flat.begin() + 1312, flat.begin() + 1317), (Bytes{38, 0, 0, 0, '/'}));
  const auto slot5 = flat.begin() + slot1 + 4 * 4;
  EXPECT_EQ(Bytes(slot5, slot5 + 5), (Bytes{0x2C, 0x01, 0, 0, 'x'}));
}

TEST(FlatSequenceData, ReadsBackWhatWasWritten) {
  const std::optional<SequenceState> state = readFlat(flatWithTexts());
  ASSERT_TRUE(state);
  for (size_t index = 0; index < 256; ++index) ASSERT_EQ(state->visibility[index], static_cast<int32_t>(index) - 100);
  EXPECT_EQ(state->text[0], "/patterns/oak.png*****FOLDER*****Woods");
  EXPECT_EQ(state->text[1], "");
  EXPECT_EQ(state->text[5], std::string(300, 'x'));
  EXPECT_EQ(state->text[31], "last");
}

TEST(FlatSequenceData, IsRefusedAtEveryLengthShortOfItsOwn) {
  const Bytes whole = flatWithTexts();
  for (size_t length = 0; length < whole.size(); ++length) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    ASSERT_FALSE(readFlat(cut)) << length << " bytes";
  }
  EXPECT_TRUE(readFlat(whole));
}

TEST(FlatSequenceData, IgnoresWhatFollowsTheLastText) {
  Bytes flat = flatWithTexts();
  flat.resize(flat.size() + 13, 0xAB);
  const std::optional<SequenceState> state = readFlat(flat);
  ASSERT_TRUE(state);
  EXPECT_EQ(state->text[31], "last");
}

TEST(FlatSequenceData, RefusesALengthOfFourGigabytes) {
  Bytes flat = LiveRecord().flat();
  for (size_t slot = 0; slot < kTextSlots; ++slot) {
    Bytes hostile = flat;
    std::fill_n(hostile.begin() + static_cast<std::ptrdiff_t>(1312 + 4 * slot), 4, uint8_t{0xFF});
    ASSERT_FALSE(readFlat(hostile)) << "slot " << slot;
  }
}

TEST(FlatSequenceData, OfRandomBytesIsRefusedOrReadWithinItsBounds) {
  std::mt19937 random(20);
  for (int round = 0; round < 20000; ++round) {
    Bytes flat(1312 + random() % 400);
    // Small numbers make lengths that often fit.
    for (uint8_t& byte : flat) byte = random() % 4 ? uint8_t{0} : static_cast<uint8_t>(random() % 16);
    const std::optional<SequenceState> state = readFlat(flat);
    if (!state) continue;
    size_t size = 1312;
    for (const std::string& text : state->text) size += 4 + text.size();
    ASSERT_LE(size, flat.size()) << "round " << round;
  }
}

TEST(SequenceForm, IsToldByTheFlag) {
  EXPECT_EQ(sequenceFormOf(LiveRecord().bytes()), SequenceForm::Live);
  EXPECT_EQ(sequenceFormOf(LiveRecord().flat()), SequenceForm::Flat);
}

TEST(SequenceForm, OfAShortOrUnknownRecordIsDamaged) {
  Bytes live = LiveRecord().bytes();
  EXPECT_EQ(sequenceFormOf({}), SequenceForm::Damaged);
  EXPECT_EQ(sequenceFormOf(std::span(live).first(1311)), SequenceForm::Damaged);
  live[1024] = 2;
  EXPECT_EQ(sequenceFormOf(live), SequenceForm::Damaged);
}

TEST(SequenceForm, OfFlatDataThatLostItsFlagIsDamaged) {
  Bytes flat = flatWithTexts();
  flat[1024] = 0;
  EXPECT_EQ(sequenceFormOf(flat), SequenceForm::Damaged);
}

TEST(SequenceForm, OfALiveRecordThatLacksAPartIsDamaged) {
  LiveRecord record;
  record.data.text[17] = nullptr;
  EXPECT_EQ(sequenceFormOf(record.bytes()), SequenceForm::Damaged);
}

}  // namespace
}  // namespace quiltor
