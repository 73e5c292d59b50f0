#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "formats/ps_pattern.h"
#include "formats/test_pattern_file.h"
#include "formats/test_pictures.h"
#include "platform/redirected_output.h"
#include "platform/scratch_folder.h"

namespace quiltor {

// For tests: what is printed in its scope goes to a file.
class CapturedOutput {
 public:
  explicit CapturedOutput(const std::string& path) : path_(path), redirected_(path) {}

  std::string text() const {
    std::fflush(stdout);
    const Bytes bytes = readBytes(path_);
    return std::string(bytes.begin(), bytes.end());
  }

 private:
  std::string path_;
  RedirectedOutput redirected_;
};

// For tests: writes pattern files and reads them.
class PatternFileTest : public testing::Test {
 protected:
  void read(const Bytes& bytes) {
    writeBytes(path_, bytes);
    patterns_.clear();
    const CapturedOutput output(scratch_.path("output"));
    result_ = loadPatternFile(path_, patterns_, &report_);
    printed_ = output.text();
  }
  void read(const TestPatternFile& file) { read(file.bytes()); }
  void read(const TestPattern& pattern) { read(TestPatternFile{.patterns = {pattern}}); }

  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& pattern : patterns_) names.push_back(pattern->name);
    return names;
  }
  // The pixels of the only pattern; none when there is not exactly one.
  Bytes pixels() const { return patterns_.size() == 1 ? patterns_[0]->pixels : Bytes(); }

  ScratchFolder scratch_;
  std::string path_ = scratch_.path("patterns.pat");
  int32_t result_ = 1;
  PsPatterns patterns_;
  PatternFileReport report_;
  std::string printed_;
};

// For tests: two pixels, one above the other.
inline constexpr TestRectangle kTwoPixels = {.top = 0, .left = 0, .bottom = 2, .right = 1};

inline TestPattern greyPattern(const std::u16string& name = u"grey") {
  return {.mode = 1, .rectangle = kTwoPixels, .planes = {{.samples = {10, 20}}}, .name = name};
}

inline TestPattern rgbPattern(const std::u16string& name = u"rgb") {
  return {.mode = 3,
          .rectangle = kTwoPixels,
          .planes = {{.samples = {1, 4}}, {.samples = {2, 5}}, {.samples = {3, 6}}},
          .name = name};
}

}  // namespace quiltor
