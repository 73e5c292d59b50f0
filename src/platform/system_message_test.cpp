#include "platform/system_message.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(SystemMessage, IsALineWithoutItsEnd) {
  constexpr int kNoSuchFile = 2;  // on both systems
  const std::string words = systemMessage({kNoSuchFile, std::system_category()}, "missing");
  ASSERT_GT(words.size(), 10u);
  EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
  EXPECT_TRUE(words.back() != '.' && words.back() != ' ') << words;
}

TEST(SystemMessage, IsTheCLibrarysForAnErrorOfItsOwn) {
  const std::error_code error = std::make_error_code(std::errc::not_enough_memory);
  EXPECT_EQ(systemMessage(error, "file"), error.message());
}

}  // namespace
}  // namespace quiltor
