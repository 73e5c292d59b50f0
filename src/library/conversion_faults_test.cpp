#include <random>
#include <thread>

#include "formats/image_file.h"
#include "library/conversion_test.h"
#include "platform/testing/locked.h"
#include "platform/testing/small_disk.h"
#include "platform/testing/test_process.h"

namespace quiltor {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace fs = std::filesystem;

// The word is the library; the data folders are known from the environment.
const ProcessWork kConvert("convert a library", [](const std::vector<std::string>& words) {
  convertLibraryFiles({words[0]}, {words[0]});
  return 0;
});

class ConversionFaults : public ConversionTest {
 protected:
  ConversionFaults() {
    // For the tests that run as another user.
    for (const auto& entry : fs::recursive_directory_iterator(data_.path("."))) {
      fs::permissions(entry.path(), fs::perms::all);
    }
    fs::permissions(data_.path("."), fs::perms::all);
  }

  [[nodiscard]] bool convertAsOrdinaryUser() {
    return asOrdinaryUser([&] {
      convert();
      return true;
    });
  }

  // Bytes that cannot be packed.
  static Bytes noise(size_t count) {
    Bytes bytes;
    std::mt19937 random(1);
    while (bytes.size() < count) bytes.push_back(static_cast<uint8_t>(random()));
    return bytes;
  }

  static TestPattern noisePattern(uint32_t side) {
    TestPattern pattern = greyPattern();
    pattern.rectangle = {.top = 0, .left = 0, .bottom = side, .right = side};
    pattern.planes[0].samples = noise(size_t{side} * side);
    return pattern;
  }

  // Everything that is made from the library when nothing goes wrong.
  std::map<std::string, Bytes> resultsOfAQuietRun() {
    convert();
    auto expected = results();
    fs::remove_all(data_.all("PS Patterns"));
    fs::remove_all(data_.all(".cache"));
    return expected;
  }
};

TEST_F(ConversionFaults, AFullDiskInTheMiddleOfAFileLeavesItForTheNextRun) {
  writePatterns(library("Wood.pat"), {.patterns = {greyPattern(), noisePattern(100), greyPattern()}});
  const auto expected = resultsOfAQuietRun();
  {
    const SmallDisk disk(5000);
    convert();
  }
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/Wood/Wood_02.png"));
  EXPECT_THAT(log(), Contains("Error saving '" + converted("Wood/Wood_01.png") + "': -5"));
  convert();
  EXPECT_EQ(results(), expected);
}

TEST_F(ConversionFaults, AFullDiskLeavesNoThumbnail) {
  writePng(library("a.png"), {.width = 50, .height = 50, .pixels = noise(7500)});
  const auto expected = resultsOfAQuietRun();
  writeText(data_.user("log.txt"), "");
  {
    const SmallDisk disk(1500);
    convert();
  }
  EXPECT_THAT(resultNames(), IsEmpty());
  EXPECT_THAT(log(), SizeIs(2));
  convert();
  EXPECT_EQ(results(), expected);
}

TEST_F(ConversionFaults, AFolderThatCannotBeWrittenIsLoggedForEachPicture) {
  writeGreyPatterns(library("Wood.pat"), 2);
  writePng(library("a.png"), {.width = 1, .height = 1, .pixels = {1, 2, 3}});
  {
    const WriteProtected folder(data_.all("."));
    EXPECT_TRUE(convertAsOrdinaryUser());
  }
  EXPECT_THAT(resultNames(), IsEmpty());
  const std::vector<std::string> lines = log();
  ASSERT_THAT(lines, SizeIs(6));
  for (const size_t error : {1u, 3u, 5u}) {
    EXPECT_THAT(lines[error], StartsWith("Error saving '"));
    EXPECT_TRUE(lines[error].ends_with("': -1")) << lines[error];
  }
}

TEST_F(ConversionFaults, AFolderThatCannotBeReadIsPassedOver) {
  for (const char* folder : {"a", "locked", "z"}) {
    fs::create_directory(library(folder));
    writeGreyPatterns(library(folder) + "/" + folder + ".pat", 1);
  }
  const Locked folder(library("locked"));
  EXPECT_TRUE(convertAsOrdinaryUser());
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/a/a_00.png", "PS Patterns/z/z_00.png"));
}

TEST_F(ConversionFaults, AFileThatCannotBeReadIsPassedOver) {
  for (const char* name : {"a.pat", "locked.pat", "z.pat"}) writeGreyPatterns(library(name), 1);
  const Locked file(library("locked.pat"));
  EXPECT_TRUE(convertAsOrdinaryUser());
  EXPECT_THAT(resultNames(), ElementsAre("PS Patterns/a/a_00.png", "PS Patterns/z/z_00.png"));
}

TEST_F(ConversionFaults, SeveralWorkersAtOnceMakeTheSame) {
  for (const char* name : {"Oak.pat", "Stone.pat", "Wood.pat"}) {
    writePatterns(library(name), {.patterns = {noisePattern(30), greyPattern(), noisePattern(20)}});
  }
  for (int i = 0; i < 20; ++i) {
    writePng(library(std::to_string(i) + ".png"), {.width = 50, .height = 50, .pixels = someBytes(7500)});
  }
  const auto expected = resultsOfAQuietRun();
  EXPECT_THAT(expected, SizeIs(29));
  const CapturedOutput names(data_.path("names"));
  const auto work = [&] { convertLibraryFiles({library()}, {library()}); };
  for (int round = 0; round < 5; ++round) {
    fs::remove_all(data_.all("PS Patterns"));
    fs::remove_all(data_.all(".cache"));
    TestProcess process(kConvert, {library()});
    std::thread other(work);
    work();
    other.join();
    ASSERT_EQ(process->end(), 0);
    ASSERT_EQ(results(), expected) << "round " << round;
  }
  EXPECT_THAT(log(), Each(StartsWith("Converting ")));
}

}  // namespace
}  // namespace quiltor
