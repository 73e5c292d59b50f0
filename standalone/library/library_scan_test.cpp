#include "standalone/library/library_scan.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "library/data_folders.h"
#include "standalone/library/image_folders.h"
#include "standalone/library/library_files.h"

namespace quiltor::standalone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LibraryScanTest : public testing::Test {
 protected:
  // An empty file in Textures, which is enough to be found.
  std::string touch(const std::string& name) {
    const std::string path = data_.path("Textures/" + name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    writeText(path, "");
    return path;
  }

  // What the list says, with the same separator everywhere and the folder of the textures as "T".
  std::vector<std::string> lines() {
    std::vector<std::string> lines;
    const std::string folder = data_.path("Textures");
    for (const Library& library : findLibraries(settings_).libraries) {
      std::string line = listLine(library);
      std::ranges::replace(line, '\\', '/');
      if (const size_t found = line.find(folder); found != std::string::npos)
        line.replace(found, folder.size(), 1, 'T');
      lines.push_back(line);
    }
    return lines;
  }
  // Its pictures, with the same separator everywhere.
  static std::vector<std::string> imagesOf(const Library& library, bool flattened) {
    std::vector<std::string> images = libraryImages(library, flattened);
    for (std::string& image : images) std::ranges::replace(image, '\\', '/');
    return images;
  }

  DataFolders data_;
  LibrarySettings settings_{.baseFolder = "", .addFolders = {data_.path("Textures"), "[not set]", "", ""}};
};

TEST_F(LibraryScanTest, ListsEveryFolderThatDirectlyHoldsAPicture) {
  touch("a.PNG");
  touch("wood/oak/b.jpeg");
  touch("wood/oak/old/c.Jpg");
  touch("stone/notes.txt");
  EXPECT_THAT(lines(),
              ElementsAre("Textures**T", "Textures*wood | oak*T/wood/oak", "Textures*wood | oak | old*T/wood/oak/old"));
}

TEST_F(LibraryScanTest, ListsOnlyTheFirstFoldersWhenFlattened) {
  touch("a.png");
  touch("wood/oak/b.jpg");
  touch("wood/ash/c.jpg");
  touch("stone/notes.txt");
  settings_.flattenSubfolders = true;
  EXPECT_THAT(lines(), ElementsAre("Textures**T", "Textures*wood*T/wood"));
}

TEST_F(LibraryScanTest, PassesThumbnailsOver) {
  touch(".cache/1.png");
  touch("wood/.cache/2.png");
  touch("wood/.cache/deeper/3.png");
  EXPECT_THAT(lines(), IsEmpty());
  settings_.flattenSubfolders = true;
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(LibraryScanTest, FindsLibrariesBelowAFolderOfThumbnails) {
  std::filesystem::create_directories(data_.path(".cache/Mine"));
  writeText(data_.path(".cache/Mine/a.png"), "");
  settings_.addFolders[0] = data_.path(".cache/Mine");
  EXPECT_THAT(lines(), ElementsAre("Mine**" + data_.path(".cache/Mine")));
}

TEST_F(LibraryScanTest, TakesTheFoldersInTheirOrderAndTheCloudLast) {
  touch("a.png");
  std::filesystem::create_directories(data_.path("Base"));
  writeText(data_.path("Base/b.png"), "");
  settings_.baseFolder = data_.path("Base");
  const std::string cloud = data_.path("user/Adobe/Creative Cloud Libraries/LIBS/id/xyz");
  std::filesystem::create_directories(cloud + "/other");
  writeText(cloud + "/manifest", R"(["library+dcx","name":"Walls","pattern+dcx"])");
  writeText(cloud + "/other/manifest", "nothing of ours");
  writeText(cloud + "/other/manifest.txt", R"(["library+dcx","name":"Text","pattern+dcx"])");
  EXPECT_THAT(lines(), ElementsAre("Base**" + data_.path("Base"), "Textures**T", "CLOUD*Walls*" + cloud + "/manifest"));
  settings_.loadFromCloud = false;
  EXPECT_THAT(lines(), ElementsAre("Base**" + data_.path("Base"), "Textures**T"));
}

TEST_F(LibraryScanTest, ShowsThePicturesBelowAFlattenedLibrary) {
  const std::string above = touch("wood/b.png"), below = touch("wood/oak/a.jpg");
  touch("wood/.cache/c.png");
  touch("wood/notes.txt");
  const Library library{"Textures", "wood", data_.path("Textures/wood")};
  EXPECT_THAT(imagesOf(library, false), ElementsAre(above));
  EXPECT_THAT(imagesOf(library, true), ElementsAre(above, below));
}

TEST_F(LibraryScanTest, ShowsThePicturesBesideAManifest) {
  const std::string picture = touch("id/components/a.png");
  EXPECT_THAT(imagesOf({"CLOUD", "Walls", data_.path("Textures/id/manifest")}, true), ElementsAre(picture));
}

#ifndef _WIN32  // there are no such links and names
using LinuxLibraryScan = LibraryScanTest;

TEST_F(LinuxLibraryScan, EndsInALoopOfLinks) {
  touch("wood/a.png");
  std::filesystem::create_directory_symlink(data_.path("Textures"), data_.path("Textures/wood/again"));
  EXPECT_THAT(lines(), ElementsAre("Textures*wood*T/wood"));
}

TEST_F(LinuxLibraryScan, DoesNotListAFolderAgainThatALinkInItLeadsTo) {
  touch("a.png");
  touch("wood/b.png");
  const std::string folder = data_.path("Textures");
  std::filesystem::create_directory_symlink(folder, folder + "/itself");
  std::filesystem::create_directory_symlink(folder, folder + "/wood/above");
  EXPECT_THAT(lines(), ElementsAre("Textures**T", "Textures*wood*T/wood"));
  settings_.flattenSubfolders = true;
  EXPECT_THAT(lines(), ElementsAre("Textures**T", "Textures*wood*T/wood"));
}

TEST_F(LinuxLibraryScan, LeavesOutWhatTheListCannotSay) {
  touch("a*b/a.png");
  touch("c\nd/a.png");
  touch("e /a.png");
  touch("f/a.png");
  const FoundLibraries found = findLibraries(settings_);
  EXPECT_THAT(found.leftOut,
              ElementsAre(data_.path("Textures/a*b"), data_.path("Textures/c\nd"), data_.path("Textures/e ")));
  EXPECT_THAT(lines(), ElementsAre("Textures*f*T/f"));
}
#endif

}  // namespace
}  // namespace quiltor::standalone
