#include "standalone/cli/typed_path.h"

#include <gtest/gtest.h>

#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

TEST(TypedPath, AFolderLosesTheSeparatorsAtItsEndAndARootKeepsThem) {
  EXPECT_EQ(withoutSeparatorAtEnd("a/b"), "a/b");
  EXPECT_EQ(withoutSeparatorAtEnd("a/b/"), "a/b");
  EXPECT_EQ(withoutSeparatorAtEnd("a/b///"), "a/b");
  EXPECT_EQ(withoutSeparatorAtEnd("/"), "/");
  EXPECT_EQ(withoutSeparatorAtEnd("."), ".");
  EXPECT_EQ(withoutSeparatorAtEnd(""), "");
}

TEST(TypedPath, OnlyANameThatEndsInPngIsAPngsInAnyCase) {
  EXPECT_NO_THROW(requirePngName("--output", "a.png"));
  EXPECT_NO_THROW(requirePngName("--output", "a.b/c.PNG"));
  for (const char* name : {"a", "a.jpg", ".png", "a.png/", ""}) {
    EXPECT_THROW(requirePngName("--output", name), UsageError) << name;
  }
}

}  // namespace
}  // namespace quiltor::standalone
