#include "formats/image_file.h"
#include "library/conversion_test.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using ConvertPatterns = ConversionTest;

TEST_F(ConvertPatterns, NumbersTwelvePatternsFrom00To11) {
  writeGreyPatterns(library("Wood.pat"), 12);
  convert();
  EXPECT_THAT(
      resultNames(),
      ElementsAre("PS Patterns/Wood/Wood_00.png", "PS Patterns/Wood/Wood_01.png", "PS Patterns/Wood/Wood_02.png",
                  "PS Patterns/Wood/Wood_03.png", "PS Patterns/Wood/Wood_04.png", "PS Patterns/Wood/Wood_05.png",
                  "PS Patterns/Wood/Wood_06.png", "PS Patterns/Wood/Wood_07.png", "PS Patterns/Wood/Wood_08.png",
                  "PS Patterns/Wood/Wood_09.png", "PS Patterns/Wood/Wood_10.png", "PS Patterns/Wood/Wood_11.png"));
  PatternImage image;
  EXPECT_EQ(LoadPngImage(converted("Wood/Wood_11.png"), image), 0);
  EXPECT_THAT(image.pixels, ElementsAre(11, 11, 11, 255, 255, 255, 255, 255));
}

TEST_F(ConvertPatterns, NumbersTheHundredAndFirst100) {
  writeGreyPatterns(library("Wood.pat"), 101);
  convert();
  EXPECT_THAT(resultNames(), SizeIs(101));
  EXPECT_TRUE(std::filesystem::exists(converted("Wood/Wood_99.png")));
  EXPECT_TRUE(std::filesystem::exists(converted("Wood/Wood_100.png")));
}

TEST_F(ConvertPatterns, TakesAnEndingInCapitalsAndKeepsTheCaseOfTheName) {
  writeGreyPatterns(library("WOOD Grain.PAT"), 1);
  convert();
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/WOOD Grain/WOOD Grain_00.png"));
}

TEST_F(ConvertPatterns, FindsFilesInSubfoldersButNotInCaches) {
  std::filesystem::create_directories(library("sub/.Cache"));
  writeGreyPatterns(library("sub/Wood.pat"), 1);
  writeGreyPatterns(library("sub/.Cache/Stone.pat"), 1);
  convert();
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/Wood/Wood_00.png"));
}

TEST_F(ConvertPatterns, LeavesOutFilesThatOnlyHaveTheEndingInTheMiddle) {
  writeGreyPatterns(library("Wood.pat.old"), 1);
  convert();
  EXPECT_THAT(resultNames(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data_.all("PS Patterns")));
}

TEST_F(ConvertPatterns, LogsEachPatternInOrder) {
  writeGreyPatterns(library("B.pat"), 2);
  writeGreyPatterns(library("A.pat"), 1);
  convert();
  EXPECT_THAT(log(), ElementsAre("Converting pattern '" + library("A.pat") + "' to '" + converted("A/A_00.png") + "'",
                                 "Converting pattern '" + library("B.pat") + "' to '" + converted("B/B_00.png") + "'",
                                 "Converting pattern '" + library("B.pat") + "' to '" + converted("B/B_01.png") + "'"));
}

TEST_F(ConvertPatterns, SkipsAFileWhoseFirstPictureIsThere) {
  std::filesystem::create_directories(converted("Wood"));
  writeText(converted("Wood/Wood_00.png"), "kept");
  writeGreyPatterns(library("Wood.pat"), 3);
  convert();
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/Wood/Wood_00.png"));
  EXPECT_EQ(readWholeFile(converted("Wood/Wood_00.png")), "kept");
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(ConvertPatterns, OfTwoFilesOfOneNameConvertsTheFirstThatItMeets) {
  for (const char* folder : {"a", "b"}) std::filesystem::create_directory(library(folder));
  writeGreyPatterns(library("a/Wood.pat"), 1);
  writeGreyPatterns(library("b/Wood.pat"), 2);
  convert({library()}, {library("b"), library("a")});
  EXPECT_THAT(resultNames(), SizeIs(2));
}

TEST_F(ConvertPatterns, MakesTheFolderOfAFileThatHoldsNone) {
  writeText(library("Wood.pat"), "no pattern file");
  convert();
  EXPECT_TRUE(std::filesystem::is_directory(converted("Wood")));
  EXPECT_THAT(resultNames(), IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(ConvertPatterns, LogsAPatternWithoutPixelsAndGoesOn) {
  TestPattern empty = greyPattern();
  empty.rectangle = {};
  empty.planes[0].samples = {};
  writePatterns(library("Wood.pat"), {.patterns = {greyPattern(), empty, greyPattern()}});
  convert();
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/Wood/Wood_00.png", "PS Patterns/Wood/Wood_02.png"));
  EXPECT_THAT(log(), testing::Contains("Error saving '" + converted("Wood/Wood_01.png") + "': -2"));
}

TEST_F(ConvertPatterns, LogsAPictureThatCannotGetItsNameAndGoesOn) {
  std::filesystem::create_directories(converted("Wood/Wood_01.png"));
  writeGreyPatterns(library("Wood.pat"), 3);
  convert();
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/Wood/Wood_00.png", "PS Patterns/Wood/Wood_02.png"));
  EXPECT_THAT(log(), testing::Contains("Error saving '" + converted("Wood/Wood_01.png") + "': -1"));
}

TEST_F(ConvertPatterns, NamesTheFirstPictureLast) {
  writeGreyPatterns(library("Wood.pat"), 3);
  // A folder stands where the last picture belongs; a second one, in the place of the first, would be met before it.
  std::filesystem::create_directories(converted("Wood/Wood_00.png"));
  std::filesystem::create_directories(converted("Wood/Wood_02.png"));
  convert();
  const std::vector<std::string> lines = log();
  ASSERT_THAT(lines, SizeIs(5));
  EXPECT_EQ(lines[3], "Error saving '" + converted("Wood/Wood_02.png") + "': -1");
  EXPECT_EQ(lines[4], "Error saving '" + converted("Wood/Wood_00.png") + "': -1");
}

}  // namespace
}  // namespace quiltor
