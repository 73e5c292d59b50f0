#include "standalone/sheet/contact_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quiltor::standalone {
namespace {

using Rgb = std::array<uint8_t, 3>;

PatternImage plain(const Rgb& color) {
  PatternImage image = {50, 50, 3, {}};
  for (int i = 0; i < 2500; ++i) image.pixels.insert(image.pixels.end(), color.begin(), color.end());
  return image;
}

std::ptrdiff_t countOf(const PatternImage& image, const Rgb& color) {
  std::ptrdiff_t count = 0;
  for (std::size_t i = 0; i < image.pixels.size(); i += 3)
    count += std::equal(color.begin(), color.end(), &image.pixels[i]);
  return count;
}

constexpr Rgb kRed{200, 10, 20}, kBlue{30, 40, 250};

TEST(ContactSheet, showsEveryThumbnailAtTwiceItsSize) {
  const PatternImage sheet = drawContactSheet({"", "", {{"", plain(kRed)}, {"", plain(kBlue)}, {"", plain(kRed)}}});
  EXPECT_TRUE(isWhole(sheet));
  EXPECT_EQ(countOf(sheet, kRed), 2 * 100 * 100);
  EXPECT_EQ(countOf(sheet, kBlue), 100 * 100);
}

TEST(ContactSheet, writesNamesAndTitle) {
  const PatternImage bare = drawContactSheet({"", "", {{"", plain(kRed)}}});
  const PatternImage named = drawContactSheet({"", "", {{"bricks", plain(kRed)}}});
  const PatternImage titled = drawContactSheet({"Bricks", "", {{"", plain(kRed)}}});
  EXPECT_NE(bare.pixels, named.pixels);
  EXPECT_NE(bare.pixels, titled.pixels);
  EXPECT_EQ(countOf(named, kRed), 100 * 100);
}

TEST(ContactSheet, keepsLongNamesOutOfTheNeighbours) {
  std::string endless;
  for (int i = 0; i < 200; ++i) endless += "W\xC3\xA4";
  const PatternImage bare = drawContactSheet({"", "", {{"", plain(kRed)}, {"", plain(kBlue)}}});
  const PatternImage sheet = drawContactSheet({"", "", {{endless, plain(kRed)}, {"", plain(kBlue)}}});
  ASSERT_EQ(sheet.width, bare.width);
  // From the second thumbnail's left edge on, nothing may differ.
  for (int y = 0; y < sheet.height; ++y) {
    const auto row = static_cast<std::ptrdiff_t>(y) * sheet.width * 3;
    const auto from = row + (24 + 124) * 3, to = row + std::ptrdiff_t{sheet.width} * 3;
    ASSERT_TRUE(std::equal(sheet.pixels.begin() + from, sheet.pixels.begin() + to, bare.pixels.begin() + from)) << y;
  }
}

TEST(ContactSheet, tellsLongNamesApartByTheirEndsAndTheirBeginnings) {
  const std::string middle(60, 'm');
  const auto drawn = [&](const std::string& name) { return drawContactSheet({"", "", {{name, plain(kRed)}}}).pixels; };
  EXPECT_NE(drawn("a" + middle + "_00"), drawn("a" + middle + "_01"));
  EXPECT_NE(drawn("a" + middle + "_00"), drawn("b" + middle + "_00"));
  EXPECT_EQ(drawn("a" + middle + "_00"), drawn("a" + middle + "mmmm_00"));
}

TEST(ContactSheet, marksWhatCouldNotBeRead) {
  const PatternImage sheet = drawContactSheet({"", "", {{"broken", {50, 50, 3, {}}}, {"good", plain(kBlue)}}});
  EXPECT_EQ(countOf(sheet, kBlue), 100 * 100);
  const PatternImage empty = drawContactSheet({"", "", {{"broken", plain({250, 249, 246})}, {"good", plain(kBlue)}}});
  EXPECT_NE(sheet.pixels, empty.pixels);
}

TEST(ContactSheet, drawsBehindATextThatIsNotUtf8) {
  for (const char* name : {"\xff", "a\xc3", "\xed\xa0\x80", "\xf8\x88\x80\x80\x80", "\xc0\x80", "a\nb"}) {
    EXPECT_EQ(countOf(drawContactSheet({name, name, {{name, plain(kRed)}, {"x", plain(kBlue)}}}), kBlue), 10000);
  }
}

TEST(ContactSheet, growsWiderThanHighAndStopsAtItsLimit) {
  const PatternImage few = drawContactSheet({"", "", std::vector<SheetEntry>(40)});
  EXPECT_GT(few.width, few.height);
  const PatternImage most = drawContactSheet({"", "", std::vector<SheetEntry>(kMostSheetEntries)});
  const PatternImage more = drawContactSheet({"", "", std::vector<SheetEntry>(kMostSheetEntries + 100)});
  EXPECT_EQ(most.height, more.height);
}

TEST(ContactSheet, ofNothingIsATitleOnPaper) { EXPECT_TRUE(isWhole(drawContactSheet({"Empty", "no pictures", {}}))); }

}  // namespace
}  // namespace quiltor::standalone
