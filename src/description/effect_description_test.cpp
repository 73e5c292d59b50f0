#include "description/effect_description.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(EffectDescription, IsTheInputAloneBeforeTheBuiltInTextAndOneAndTheSameRecordAfterEachParse) {
  const Description& description = effectDescription();
  EXPECT_EQ(description.paramCount, 1);
  EXPECT_EQ(description.settings.versionMajor, 1);
  parseBuiltInDescription();
  EXPECT_EQ(&effectDescription(), &description);
  EXPECT_EQ(description.paramCount, 16);
  parseBuiltInDescription();
  EXPECT_EQ(description.paramCount, 16);
  EXPECT_EQ(description.params.size(), kMaxParams);
}

TEST(EffectDescription, OfTheBuiltInTextHasTheEffectsBundleNameAndTheDefaultVersion) {
  parseBuiltInDescription();
  EXPECT_EQ(effectDescription().settings.bundleName, "Quiltor");
  EXPECT_EQ(effectDescription().settings.versionMajor, 1);
  EXPECT_EQ(effectDescription().settings.versionMinor, 0);
  EXPECT_EQ(effectDescription().settings.versionBug, 0);
  EXPECT_EQ(effectDescription().settings.description, "");
}

}  // namespace
}  // namespace quiltor
