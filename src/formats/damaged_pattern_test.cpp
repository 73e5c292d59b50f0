#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "formats/test_allocation_meter.h"
#include "formats/test_pattern_reading.h"

namespace quiltor {
namespace {

constexpr unsigned kSeed = 20240611;
constexpr int kTurns = 6000;
// A byte of PackBits becomes 64 samples at most, a sample four bytes; the plane and what it grows out of come on top.
constexpr int64_t kMostBytesPerByte = 600;
constexpr int64_t kAllowance = 64 * 1024;
constexpr auto kMostTime = std::chrono::seconds(5);

TestPlane plane(size_t seed, size_t count, uint16_t depth = 8, uint8_t compression = 0) {
  Bytes samples(count * depth / 8);
  for (size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<uint8_t>(i % 16 < 9 ? seed : i * 13 + seed);
  return {.samples = std::move(samples), .depth = depth, .compression = compression};
}

// Files that hold every kind of pattern between them, each named differently.
std::vector<TestPatternFile> originals() {
  constexpr TestRectangle kSmall = {.top = 2, .left = 1, .bottom = 2 + 6, .right = 1 + 7};
  constexpr size_t kCount = 6 * 7;
  std::vector<TestPatternFile> files;
  for (const uint16_t depth : {uint16_t{8}, uint16_t{16}}) {
    for (const uint8_t compression : {uint8_t{0}, uint8_t{1}}) {
      const auto some = [&](size_t seed) { return plane(seed, kCount, depth, compression); };
      TestPattern grey = {.mode = 1, .rectangle = kSmall, .planes = {some(1)}, .transparency = some(2)};
      TestPattern rgb = {.rectangle = kSmall, .planes = {some(3), some(4), some(5)}, .transparency = some(6)};
      TestPattern cmyk = {.mode = 4, .rectangle = kSmall, .planes = {some(7), some(8), some(9), some(10)}};
      TestPattern indexed = {.mode = 2, .rectangle = kSmall, .planes = {some(11)}, .colourTable = someBytes(768)};
      grey.name = u"grey \u00e4";
      rgb.name = u"rgb \U0001F9F5";
      cmyk.name = u"";
      indexed.name = u"indexed";
      files.push_back({.patterns = {grey, rgb, cmyk}});
      files.push_back({.patterns = {rgb, indexed, grey}});
    }
  }
  return files;
}

Bytes withoutAlpha(Bytes pixels) {
  for (size_t i = 3; i < pixels.size(); i += 4) pixels[i] = 0;
  return pixels;
}

class DamagedPattern : public PatternFileTest {
 protected:
  // Reads and holds the outcome against what every outcome must be.
  void readDamaged(const Bytes& bytes) {
    writeBytes(path_, bytes);
    patterns_.clear();
    report_ = {};
    const auto begin = std::chrono::steady_clock::now();
    const AllocationMeter meter;
    {
      const CapturedOutput nowhere(kNullDevice);
      result_ = loadPatternFile(path_, patterns_, &report_);
    }
    EXPECT_LT(meter.peak(), kAllowance + kMostBytesPerByte * std::ssize(bytes));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kMostTime);
    EXPECT_TRUE(result_ == 0 || (result_ == -1 && patterns_.empty() && report_.problem)) << result_;
    for (const auto& pattern : patterns_) {
      EXPECT_EQ(pattern->pixels.size(), uint64_t{pattern->width} * pattern->height * 4);
    }
  }

  size_t random(size_t below) { return static_cast<size_t>(random_() % below); }

  uint32_t extreme() {
    constexpr uint32_t kExtremes[] = {0,          1,          2,          7,          8,          16,
                                      0x7F,       0x80,       0xFF,       0x100,      0x7FFF,     0x8000,
                                      0xFFFF,     0x10000,    0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFFE,
                                      0xFFFFFF00, 0x40000000, 0x3FFFFFFF, 0x10000000, 1000,       100000};
    return kExtremes[random(std::size(kExtremes))];
  }

  void changeOneEdge(TestRectangle& rectangle) {
    uint32_t* const edges[] = {&rectangle.top, &rectangle.left, &rectangle.bottom, &rectangle.right};
    uint32_t& edge = *edges[random(4)];
    edge = random(4) ? extreme() : edge + static_cast<uint32_t>(random(9)) - 4;
  }

  void changeOneField(TestPattern& pattern, TestPlane& some, TestPatternFile& file) {
    switch (random(12)) {
      case 0:
        pattern.mode = random(2) ? extreme() : static_cast<uint32_t>(random(6));
        if (pattern.mode == 2) pattern.colourTable = someBytes(random(2) ? 768 : random(800));
        break;
      case 1:
        pattern.listLength = random(2) ? extreme() : static_cast<uint32_t>(random(900));
        break;
      case 2:
        pattern.nameCount = random(2) ? extreme() : static_cast<uint32_t>(random(40));
        break;
      case 3:
        file.count = extreme();
        break;
      case 4:
        pattern.uniqueId = std::string(random(80), 'u');
        break;
      case 5:
        pattern.unusedArrays = static_cast<uint32_t>(random(40));
        break;
      case 6:
        some.depth = static_cast<uint16_t>(random(2) ? extreme() : 16);
        break;
      case 7:
        some.compression = static_cast<uint8_t>(extreme());
        break;
      case 8: {
        // Bytes that stand for counts of rows as well as for runs.
        Bytes data(random(300));
        for (uint8_t& byte : data) byte = static_cast<uint8_t>(random(3) ? random(4) : random(256));
        some.data = std::move(data);
        break;
      }
      case 9:
      case 10: {
        TestRectangle rectangle = some.rectangle.value_or(pattern.rectangle);
        changeOneEdge(rectangle);
        // The rows of the good plane, whatever the rectangle says now.
        if (!some.data) some.data = some.compression ? packRows(some.samples, 6u * (some.depth / 8u)) : some.samples;
        some.rectangle = rectangle;
        break;
      }
      default: {
        const TestRectangle before = pattern.rectangle;
        changeOneEdge(pattern.rectangle);
        const bool planesStay = random(2) == 0;
        const auto settle = [&](TestPlane& settled) {
          if (!settled.data) {
            settled.data = settled.compression ? packRows(settled.samples, 6u * (settled.depth / 8u)) : settled.samples;
          }
          if (planesStay && !settled.rectangle) settled.rectangle = before;
        };
        for (TestPlane& settled : pattern.planes) settle(settled);
        if (pattern.transparency) settle(*pattern.transparency);
      }
    }
  }

  std::mt19937 random_{kSeed};
};

TEST_F(DamagedPattern, IsReadAsFarAsItGoesWhereverTheFileIsCutOff) {
  for (const TestPatternFile& file : originals()) {
    const Bytes whole = file.bytes();
    readDamaged(whole);
    const PsPatterns all = std::move(patterns_);
    ASSERT_EQ(all.size(), 3u);
    size_t before = 0;
    for (size_t length = 0; length < whole.size(); ++length) {
      readDamaged(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
      EXPECT_EQ(result_, length < 10 ? -1 : 0) << length;
      EXPECT_GE(patterns_.size(), before) << length;
      ASSERT_LE(patterns_.size(), all.size());
      before = patterns_.size();
      for (size_t i = 0; i < patterns_.size(); ++i) {
        ASSERT_EQ(patterns_[i]->name, all[i]->name) << length;
        ASSERT_EQ(withoutAlpha(patterns_[i]->pixels), withoutAlpha(all[i]->pixels)) << length;
      }
      EXPECT_TRUE(length < 10 || patterns_.size() + report_.failures.size() == 3 || report_.problem) << length;
    }
    EXPECT_EQ(before, 3u);
  }
}

TEST_F(DamagedPattern, IsReadOrLeftOutWhateverBytesChange) {
  std::vector<Bytes> files;
  for (const TestPatternFile& file : originals()) files.push_back(file.bytes());
  int whole = 0;
  int partly = 0;
  int refused = 0;
  for (int turn = 0; turn < kTurns && !HasFailure(); ++turn) {
    SCOPED_TRACE("turn " + std::to_string(turn));
    Bytes bytes = files[random(files.size())];
    for (size_t count = 1 + random(4); count > 0; --count) {
      const size_t at = random(random(2) ? bytes.size() : 200);
      bytes[at] = static_cast<uint8_t>(random(3) ? random(256) : random(2) * 255);
    }
    readDamaged(bytes);
    ++(result_ != 0 ? refused : patterns_.size() < 3 ? partly : whole);
  }
  EXPECT_GT(whole, kTurns / 30);
  EXPECT_GT(partly, kTurns / 30);
  EXPECT_GT(refused, kTurns / 100);
}

TEST_F(DamagedPattern, IsReadOrLeftOutWhateverItsFieldsSay) {
  const std::vector<TestPatternFile> files = originals();
  int whole = 0;
  int partly = 0;
  for (int turn = 0; turn < kTurns && !HasFailure(); ++turn) {
    SCOPED_TRACE("turn " + std::to_string(turn));
    TestPatternFile file = files[random(files.size())];
    for (size_t count = 1 + random(3); count > 0; --count) {
      TestPattern& pattern = file.patterns[random(3)];
      const bool isColour = !pattern.transparency || random(2);
      changeOneField(pattern, isColour ? pattern.planes[random(pattern.planes.size())] : *pattern.transparency, file);
    }
    readDamaged(file.bytes());
    ++(patterns_.size() < 3 ? partly : whole);
  }
  EXPECT_GT(whole, kTurns / 30);
  EXPECT_GT(partly, kTurns / 30);
}

TEST_F(DamagedPattern, CannotHaveItsBytesReadOverAndOver) {
  // Each plane reaches to the end of the file, and each list says that it ends where the plane's data begins.
  constexpr size_t kPatterns = 20000;
  const size_t recordBytes = patternBytes(greyPattern(u"")).size() - 2 - 25 * 4;
  BigEndianWriter file;
  file.bytes(TestPatternFile{.count = kPatterns}.bytes());
  for (size_t i = 0; i < kPatterns; ++i) {
    const auto left = static_cast<uint32_t>((kPatterns - 1 - i) * recordBytes);
    TestPattern pattern = greyPattern(u"");
    pattern.rectangle = {.bottom = 1, .right = left};
    pattern.planes = {{}};
    pattern.listLength = 16 + 4 + 31;
    Bytes bytes = patternBytes(pattern);
    bytes.resize(recordBytes);
    file.bytes(bytes);
  }
  readDamaged(file.take());
  EXPECT_GE(patterns_.size(), 1u);
  EXPECT_LE(patterns_.size(), 4u);
  EXPECT_STREQ(report_.problem, "its patterns overlap");
}

TEST_F(DamagedPattern, CannotAskForMemoryThatItsDataDoesNotFill) {
  // Planes with nothing in them, with rows that are empty and with rows that are not there.
  const TestPlane planes[] = {{.rectangle = TestRectangle{}},
                              {.compression = 1, .rectangle = TestRectangle{}},
                              {.compression = 1, .data = Bytes{0, 0}},
                              {.compression = 1, .data = Bytes{0, 1, 128}},
                              {.compression = 1, .data = Bytes{0, 2, 129, 5}},
                              {.compression = 1, .rectangle = TestRectangle{.bottom = 0x7FFFFFFF}, .data = Bytes{0, 0}},
                              {.data = Bytes{}}};
  for (const TestPlane& some : planes) {
    for (const uint32_t width : {20000u, 1u << 20, 1u << 28}) {
      TestPattern pattern = greyPattern();
      pattern.rectangle = {.bottom = 1, .right = width};
      pattern.planes = {some};
      readDamaged(TestPatternFile{.patterns = std::vector<TestPattern>(40, pattern)}.bytes());
      EXPECT_TRUE(patterns_.empty()) << width;
    }
  }
}

}  // namespace
}  // namespace quiltor
