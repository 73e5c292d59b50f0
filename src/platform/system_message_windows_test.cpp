#include <gtest/gtest.h>
#include <windows.h>

#include "base/utf8_path.h"
#include "platform/system_message.h"

namespace quiltor {
namespace {

std::string wordsFor(DWORD error, const std::string& file) {
  return systemMessage({static_cast<int>(error), std::system_category()}, pathFromUtf8(file));
}

TEST(WindowsMessage, NamesTheFileWhateverItsCharacters) {
  const std::string name = "M\xC3\xBCster \xE6\xA8\xA1.dll";
  EXPECT_NE(wordsFor(ERROR_BAD_EXE_FORMAT, "folder/" + name).find(name), std::string::npos);
}

TEST(WindowsMessage, IsTheNumberWhereTheSystemHasNoWords) { EXPECT_EQ(wordsFor(0x2FFFFFFF, "a"), "error 805306367"); }

// It has two: in what file a message was not found, and its number.
TEST(WindowsMessage, FillsEveryPlaceWithTheFile) {
  const std::string words = wordsFor(ERROR_MR_MID_NOT_FOUND, "name");
  const std::size_t first = words.find("name");
  ASSERT_NE(first, std::string::npos) << words;
  EXPECT_NE(words.find("name", first + 1), std::string::npos) << words;
}

}  // namespace
}  // namespace quiltor
