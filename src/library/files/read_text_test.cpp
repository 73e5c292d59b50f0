#include "library/files/read_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "platform/open_files.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReadText : public testing::Test {
 protected:
  std::string write(const std::string& content) const {
    std::ofstream(scratch_.path("text"), std::ios::binary) << content;
    return scratch_.path("text");
  }

  std::vector<std::string> lines(const std::string& content) const {
    std::vector<std::string> result = {"left over"};
    EXPECT_EQ(readTextLines(write(content), result), 0);
    return result;
  }

  ScratchFolder scratch_;
};

TEST_F(ReadText, KeepsEveryByteOfAWholeFile) {
  const std::string content("\r\n\0\x1A\xFF\n", 6);
  EXPECT_EQ(readWholeFile(write(content)), content);
  const std::string large(100000, 'x');
  EXPECT_EQ(readWholeFile(write(large)), large);
}

TEST_F(ReadText, IsEmptyWithoutAFile) {
  EXPECT_EQ(readWholeFile(""), "");
  EXPECT_EQ(readWholeFile(scratch_.path("missing")), "");
  EXPECT_EQ(readWholeFile(scratch_.path()), "");
}

TEST_F(ReadText, ABlankLineThatEndsInCrLfIsALineOfItsOwn) {
  EXPECT_THAT(lines("first\r\n\r\nsecond\r\n"), ElementsAre("first\r", "\r", "second\r"));
}

TEST_F(ReadText, DropsEmptyLinesAndEndsLinesAtLineFeedsOnly) {
  EXPECT_THAT(lines("\n\nfirst\rstill first\n\nlast without an end"),
              ElementsAre("first\rstill first", "last without an end"));
  EXPECT_THAT(lines(""), IsEmpty());
}

TEST_F(ReadText, OfAnEmptyPathIsAnErrorAndOfAMissingFileNoLines) {
  std::vector<std::string> result = {"left over"};
  EXPECT_EQ(readTextLines("", result), -1);
  EXPECT_THAT(result, IsEmpty());
  result = {"left over"};
  EXPECT_EQ(readTextLines(scratch_.path("missing"), result), 0);
  EXPECT_THAT(result, IsEmpty());
}

TEST_F(ReadText, ClosesTheFileAgain) {
  const std::string path = write("text");
  const int before = openFiles();
  EXPECT_EQ(readWholeFile(path), "text");
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace quiltor
