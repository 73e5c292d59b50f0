#include <gtest/gtest.h>

#include "standalone/cli/typed_path.h"

namespace quiltor::standalone {
namespace {

TEST(WindowsTypedPath, AFolderOfADriveLosesTheSeparatorsAtItsEndAndTheDriveKeepsThem) {
  EXPECT_EQ(withoutSeparatorAtEnd(R"(C:\a\)"), R"(C:\a)");
  EXPECT_EQ(withoutSeparatorAtEnd("C:/a/"), "C:/a");
  EXPECT_EQ(withoutSeparatorAtEnd(R"(C:\a\b)"), R"(C:\a\b)");
  EXPECT_EQ(withoutSeparatorAtEnd(R"(C:\)"), R"(C:\)");
  EXPECT_EQ(withoutSeparatorAtEnd("C:/"), "C:/");
  EXPECT_EQ(withoutSeparatorAtEnd("C:"), "C:");
}

}  // namespace
}  // namespace quiltor::standalone
