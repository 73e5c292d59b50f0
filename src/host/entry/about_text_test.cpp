#include "host/entry/about_text.h"

#include <gtest/gtest.h>

namespace quiltor {
namespace {

TEST(AboutText, NamesTheEffectWhatItDoesAndItsVersion) {
  DescriptionSettings settings;
  settings.description = "Patterns for everyone";
  settings.versionMajor = 2;
  settings.versionMinor = 10;
  settings.versionBug = 3;
  EXPECT_EQ(aboutText(settings),
            "Quiltor\r"
            "The plugin allows you to draw textures on layers and work with patterns directly from AE.\r"
            "Patterns for everyone\r"
            "v2.10.3");
}

TEST(AboutText, TurnsWrittenLineEndsOfTheDescriptionIntoRealOnes) {
  DescriptionSettings settings;
  settings.description = R"(a\rb\nc)";
  EXPECT_NE(aboutText(settings).find("\ra\rb\nc\rv"), std::string::npos);
}

TEST(AboutText, LeavesOtherBackslashesAlone) {
  DescriptionSettings settings;
  settings.description = R"(C:\temp\\n\)";
  EXPECT_NE(aboutText(settings).find("\rC:\\temp\\\n\\\rv"), std::string::npos);
}

TEST(AboutText, IsCutAt230Characters) {
  DescriptionSettings settings;
  settings.description.clear();
  const std::string start = aboutText(settings).substr(0, aboutText(settings).find("\rv"));
  settings.description = std::string(230 - start.size() - 1, 'x') + "yz";
  const std::string text = aboutText(settings);
  EXPECT_EQ(text, start + std::string(230 - start.size() - 1, 'x') + "y");
}

TEST(AboutText, OfADescriptionWithoutSettingsHasTheDefaults) {
  const std::string text = aboutText(DescriptionSettings{});
  EXPECT_EQ(text.substr(text.rfind("AE.")), "AE.\rDraws a pattern over a layer.\rv1.0.0");
}

}  // namespace
}  // namespace quiltor
