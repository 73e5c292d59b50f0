#include "standalone/library/cloud_manifest.h"

#include <gtest/gtest.h>

namespace quiltor::standalone {
namespace {

TEST(CloudManifest, NamesItsLibraryBehindTheMark) {
  EXPECT_EQ(cloudLibraryName(R"({"type":"application/library+dcx","name" : "Walls",
                                 "children":[{"type":"pattern+dcx","name":"Brick"}]})"),
            "Walls");
}

TEST(CloudManifest, NamesItsLibraryInFrontOfTheMarkWhenAnotherEntryBeginsBehind) {
  EXPECT_EQ(cloudLibraryName(R"({"name":"Walls","type":"library+dcx",
                                 "children":[{"name":"Brick","type":"pattern+dcx"}]})"),
            "Walls");
}

TEST(CloudManifest, NamesItsLibraryInFrontOfTheMarkWhenNoNameStandsBehind) {
  EXPECT_EQ(cloudLibraryName(R"({"children":[{"name":"Brick","type":"pattern+dcx"}],
                                 "name":"Walls","type":"library+dcx"})"),
            "Walls");
}

TEST(CloudManifest, WithoutPatternsHasNoName) {
  EXPECT_EQ(cloudLibraryName(R"({"name":"Walls","type":"library+dcx"})"), std::nullopt);
  EXPECT_EQ(cloudLibraryName(R"({"name":"Brick","type":"pattern+dcx"})"), std::nullopt);
}

TEST(CloudManifest, ThatBeginsWithAMarkHasNoName) {
  EXPECT_EQ(cloudLibraryName(R"(library+dcx "name":"Walls" pattern+dcx)"), std::nullopt);
  EXPECT_EQ(cloudLibraryName(R"(pattern+dcx "name":"Walls" library+dcx "name":"x")"), std::nullopt);
}

TEST(CloudManifest, ReadsEscapedCharacters) {
  EXPECT_EQ(cloudLibraryName(R"(["pattern+dcx","library+dcx","name":"\"Z\u00e4une\" \\\/ \ud83e\uddf1"])"),
            "\"Z\xc3\xa4une\" \\/ \xf0\x9f\xa7\xb1");
}

TEST(CloudManifest, WhoseNameIsDamagedHasNone) {
  for (const char* name : {"", ":", ":\"", ": 7", ":\"Walls", ":\"Walls\\", ":\"\\u12", ":\"\\u12xy\""}) {
    EXPECT_EQ(cloudLibraryName(std::string("[pattern+dcx library+dcx \"name\"") + name), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace quiltor::standalone
