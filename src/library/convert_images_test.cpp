#include <array>

#include "formats/image_file.h"
#include "library/cache_names.h"
#include "library/conversion_test.h"
#include "library/thumbnail.h"

namespace quiltor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class ConvertImages : public ConversionTest {
 protected:
  std::string thumbnailPath(const std::string& path) const {
    return data_.all(".cache/" + std::to_string(pathHash(path)) + ".png");
  }

  std::string writeDots(const std::string& name) const {
    writePng(library(name), {.width = 2, .height = 1, .pixels = {10, 20, 30, 40, 50, 60}});
    return library(name);
  }

  PatternImage thumbnail(const std::string& path) const {
    PatternImage image;
    EXPECT_EQ(LoadPngImage(thumbnailPath(path), image), 0);
    return image;
  }

  // R, G, B of a pixel of the thumbnail.
  std::array<int, 3> pixel(const PatternImage& image, int column, int row) const {
    const size_t at = static_cast<size_t>(row * 50 + column) * 4;
    return {image.pixels[at], image.pixels[at + 1], image.pixels[at + 2]};
  }
};

TEST_F(ConvertImages, ASmallPictureIsEnlargedByRepeatingItsPixels) {
  const std::string path = writeDots("a.png");
  convert();
  const PatternImage image = thumbnail(path);
  ASSERT_THAT(image.pixels, SizeIs(50 * 50 * 4));
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 50; ++column) {
      ASSERT_THAT(pixel(image, column, row), column < 25 ? ElementsAre(10, 20, 30) : ElementsAre(40, 50, 60));
    }
  }
}

TEST_F(ConvertImages, ALargePictureIsSqueezedWhateverItsShape) {
  PngContents contents = {.width = 100, .height = 75, .pixels = {}};
  for (uint8_t y = 0; y < 75; ++y) {
    for (uint8_t x = 0; x < 100; ++x) contents.pixels.insert(contents.pixels.end(), {x, y, 7});
  }
  writePng(library("a.png"), contents);
  convert();
  const PatternImage image = thumbnail(library("a.png"));
  ASSERT_THAT(image.pixels, SizeIs(50 * 50 * 4));
  for (int row = 0; row < 50; ++row) {
    for (int column = 0; column < 50; ++column) {
      ASSERT_THAT(pixel(image, column, row), ElementsAre(column * 2, row * 3 / 2, 7));
    }
  }
}

TEST_F(ConvertImages, PlacesInThePictureAreSummedUpInSinglePrecision) {
  // Of ten. Exact places would reach the fifth in the middle, and sums in double precision the second only later.
  constexpr int kPlaces[] = {0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3, 4, 4, 4, 4, 4,
                             4, 5, 5, 5, 5, 5, 6, 6, 6, 6, 6, 7, 7, 7, 7, 7, 8, 8, 8, 8, 8, 9, 9, 9, 9};
  PngContents contents = {.width = 10, .height = 10, .pixels = {}};
  for (uint8_t y = 0; y < 10; ++y) {
    for (uint8_t x = 0; x < 10; ++x) contents.pixels.insert(contents.pixels.end(), {x, y, 7});
  }
  writePng(library("a.png"), contents);
  convert();
  const PatternImage image = thumbnail(library("a.png"));
  ASSERT_THAT(image.pixels, SizeIs(50 * 50 * 4));
  for (int i = 0; i < 2500; ++i) {
    ASSERT_THAT(pixel(image, i % 50, i / 50), ElementsAre(kPlaces[i % 50], kPlaces[i / 50], 7)) << i;
  }
}

TEST_F(ConvertImages, APictureOfOnePixelGivesAUniformThumbnail) {
  writePng(library("a.png"), {.width = 1, .height = 1, .pixels = {10, 20, 30}});
  convert();
  const PatternImage image = thumbnail(library("a.png"));
  ASSERT_THAT(image.pixels, SizeIs(50 * 50 * 4));
  for (int i = 0; i < 2500; ++i) ASSERT_THAT(pixel(image, i % 50, i / 50), ElementsAre(10, 20, 30));
}

TEST_F(ConvertImages, AThumbnailIsAnRgbFile) {
  const std::string path = writeDots("a.png");
  convert();
  // The colour type of the header: no alpha.
  EXPECT_EQ(readBytes(thumbnailPath(path)).at(25), 2);
}

TEST_F(ConvertImages, AJpegOfOneComponentIsSteppedByItsOneChannel) {
  writeJpeg(library("a.jpg"),
            {.width = 50, .height = 50, .components = 1, .colour = JCS_GRAYSCALE, .pixels = someBytes(2500)});
  convert();
  PatternImage source;
  ASSERT_EQ(LoadJpegImage(library("a.jpg"), source), 0);
  const PatternImage image = thumbnail(library("a.jpg"));
  ASSERT_THAT(image.pixels, SizeIs(50 * 50 * 4));
  for (int i = 0; i < 2500; ++i) {
    const auto at = source.pixels.begin() + i;
    ASSERT_THAT(pixel(image, i % 50, i / 50), ElementsAre(at[0], at[1], at[2])) << i;
  }
}

TEST(Thumbnail, OfFewerThanThreeChannelsStaysWithinThePicture) {
  EXPECT_THAT(makeThumbnail({1, 1, 1, {9}}).pixels, testing::Contains(9).Times(2500));
  EXPECT_THAT(makeThumbnail({1, 2, 2, {1, 2, 3, 4}}).pixels, SizeIs(7500));
}

TEST_F(ConvertImages, EndingsAreJpgJpegAndPngInAnyCase) {
  const std::vector<std::string> taken = {writeDots("a.png"), writeDots("b.PNG"), writeDots("wood.pat.png")};
  writeDots("c.png.txt");
  writeDots("d.jpx");
  for (const char* name : {"e.jpg", "f.JPEG"}) {
    writeJpeg(library(name), {.width = 1, .height = 1, .pixels = {255, 255, 255}});
  }
  convert();
  EXPECT_THAT(resultNames(), SizeIs(5));
  for (const std::string& path : taken) EXPECT_TRUE(std::filesystem::exists(thumbnailPath(path))) << path;
  for (const char* name : {"e.jpg", "f.JPEG"})
    EXPECT_TRUE(std::filesystem::exists(thumbnailPath(library(name)))) << name;
}

TEST_F(ConvertImages, SubfoldersAndCachesAreLeftOut) {
  for (const char* folder : {"sub", "my.cache folder"}) std::filesystem::create_directory(library(folder));
  writeDots("sub/a.png");
  writeDots("my.cache folder/b.png");
  convert({library(), library("my.cache folder")}, {});
  EXPECT_THAT(resultNames(), IsEmpty());
}

TEST_F(ConvertImages, AThumbnailThatIsThereStays) {
  const std::string path = writeDots("a.png");
  std::filesystem::create_directory(data_.all(".cache"));
  writeText(thumbnailPath(path), "kept");
  convert();
  EXPECT_EQ(readWholeFile(thumbnailPath(path)), "kept");
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(ConvertImages, NamesOutsideAsciiAreConvertedUnderTheHashOfTheRest) {
  writeDots("M\xC3\xBCster.png");
  convert();
  EXPECT_TRUE(std::filesystem::exists(thumbnailPath(library("Mster.png"))));
}

TEST_F(ConvertImages, PatternsComeFirstInTheLog) {
  const std::string image = writeDots("a.png");
  writeGreyPatterns(library("Wood.pat"), 1);
  convert();
  EXPECT_THAT(log(),
              ElementsAre("Converting pattern '" + library("Wood.pat") + "' to '" + converted("Wood/Wood_00.png") + "'",
                          "Converting image '" + image + "' to '" + thumbnailPath(image) + "'"));
}

TEST_F(ConvertImages, APictureThatIsNotWholeHasNoThumbnail) {
  writePng(library("half.png"), {.width = 40, .height = 30, .pixels = someBytes(40 * 30 * 3)});
  Bytes bytes = readBytes(library("half.png"));
  bytes.resize(bytes.size() / 2);
  writeBytes(library("half.png"), bytes);
  writeText(library("none.jpg"), "no picture");
  writeDots("z.png");
  convert();
  EXPECT_THAT(resultNames(), SizeIs(1));
  EXPECT_THAT(log(), SizeIs(3));
}

TEST_F(ConvertImages, AThumbnailThatCannotGetItsNameIsLogged) {
  const std::string path = writeDots("a.png");
  std::filesystem::create_directories(thumbnailPath(path));
  convert();
  EXPECT_THAT(log(), testing::Contains("Error saving '" + thumbnailPath(path) + "': -1"));
}

TEST_F(ConvertImages, ProgressCountsFilesPicturesAndFailures) {
  writeDots("a.png");
  std::filesystem::create_directories(thumbnailPath(writeDots("b.png")));
  writeGreyPatterns(library("Wood.pat"), 3);
  std::vector<std::array<size_t, 4>> steps;
  {
    const CapturedOutput names(data_.path("names"));
    convertLibraryFiles({library()}, {library()}, [&](const ConversionProgress& progress) {
      steps.push_back({progress.total, progress.done, progress.made, progress.failures});
    });
  }
  EXPECT_THAT(steps, ElementsAre(ElementsAre(3, 1, 3, 0), ElementsAre(3, 2, 4, 0), ElementsAre(3, 3, 4, 1)));
}

TEST_F(ConvertImages, ProgressTellsWhatCannotBeRead) {
  writeGreyPatterns(library("Cut.pat"), 2);
  std::filesystem::resize_file(library("Cut.pat"), std::filesystem::file_size(library("Cut.pat")) / 2);
  writeGreyPatterns(library("Good.pat"), 1);
  writeText(library("a.png"), "no picture");
  writeText(library("No.pat"), "no pattern file");
  writeDots("b.png");
  std::vector<std::string> problems;
  {
    const CapturedOutput names(data_.path("names"));
    convertLibraryFiles({library()}, {library()}, [&](const ConversionProgress& progress) {
      std::string problem(progress.file.substr(library().size() + 1));
      if (progress.isUnreadable) problem += " is unreadable";
      if (progress.report && progress.report->problem) problem += std::string(", ") + progress.report->problem;
      problems.push_back(problem);
    });
  }
  EXPECT_THAT(problems, ElementsAre("Cut.pat, a pattern says that it reaches beyond the end of the file", "Good.pat",
                                    "No.pat is unreadable, it does not begin with 8BPT and is no pattern file",
                                    "a.png is unreadable", "b.png"));
}

TEST_F(ConvertImages, NothingIsMadeWithoutADataFolder) {
  writeDots("a.png");
  const EnvironmentOverride home("HOME", std::nullopt);
  const EnvironmentOverride data("XDG_DATA_HOME", std::nullopt);
  const EnvironmentOverride allUsers("QUILTOR_ALLUSERS_DIR", std::nullopt);
  convert();
  EXPECT_FALSE(std::filesystem::exists("/Quiltor"));
}

}  // namespace
}  // namespace quiltor
