#include "description/effect_description.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

// Taken before any test can parse, whatever their order.
const int32_t kParamCountAtLoad = effectDescription().paramCount;

TEST(EffectDescription, IsTheInputLayerAloneUntilTheFirstParse) { EXPECT_EQ(kParamCountAtLoad, 1); }

TEST(EffectDescription, IsTheSameRecordWithSixteenParametersAfterEveryParse) {
  const Description& description = effectDescription();
  for (int parse = 0; parse < 2; ++parse) {
    parseBuiltInDescription();
    EXPECT_EQ(&effectDescription(), &description);
    EXPECT_EQ(description.paramCount, 16);
    EXPECT_EQ(description.params.size(), kMaxParams);
  }
}

TEST(EffectDescription, OfTheBuiltInTextHasTheEffectsBundleNameAndTheDefaultVersion) {
  parseBuiltInDescription();
  EXPECT_EQ(effectDescription().settings.bundleName, "Quiltor");
  EXPECT_EQ(effectDescription().settings.versionMajor, 1);
  EXPECT_EQ(effectDescription().settings.versionMinor, 0);
  EXPECT_EQ(effectDescription().settings.versionBug, 0);
  EXPECT_EQ(effectDescription().settings.description, "Draws a pattern over a layer.");
}

}  // namespace
}  // namespace quiltor
