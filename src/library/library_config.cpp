#include "library/library_config.h"

#include <iterator>
#include <optional>
#include <utility>

#include "library/files/file_exists.h"
#include "library/files/read_text.h"
#include "library/files/text_pieces.h"
#include "library/files/user_data_folder.h"

namespace quiltor {
namespace {

constexpr char kLibraryList[] = "libpaths.txt";
constexpr char kSettings[] = "config.txt";
constexpr char kNotSet[] = "[not set]";
constexpr char kBlanks[] = " \t\r\n";

// The last five characters of each key, colon included, are all that counts.
constexpr std::string_view kBaseFolderMarker = "lder:";
constexpr std::string_view kAddFolderMarkers[] = {"der1:", "der2:", "der3:", "der4:"};

// Empty when the system knows no such data folder: the root of the drive is not meant.
std::string quiltorFile(bool allUsers, const char* name) {
  const std::string folder = getUserDataFolder(allUsers);
  return folder.empty() ? folder : folder + "/Quiltor/" + name;
}

std::vector<std::string> linesOf(const std::string& path) {
  std::vector<std::string> lines;
  readTextLines(path, lines);
  return lines;
}

// The value behind the first place in the line where the marker stands.
std::optional<std::string> valueBehind(std::string_view line, std::string_view marker) {
  const size_t found = line.find(marker);
  if (found == std::string_view::npos) return std::nullopt;
  return trimChars(line.substr(found + marker.size()), kBlanks);
}

Library libraryOf(const std::string& line) {
  auto [label, name, path] = threeFields(line);
  return {std::move(label), std::move(name), trimChars(path, kBlanks)};
}

std::vector<Library> librariesOf(const std::string& path) {
  std::vector<Library> libraries;
  for (const std::string& line : linesOf(path)) libraries.push_back(libraryOf(line));
  return libraries;
}

// Whether the plug-in finds its list of libraries in the data folder of all users.
bool listIsShared() { return fileExists(quiltorFile(true, kLibraryList)); }

}  // namespace

std::array<std::string, 3> threeFields(std::string_view text) {
  std::vector<std::string> pieces;
  splitAtStars(std::string(text) + "*****", pieces);
  return {std::move(pieces[0]), std::move(pieces[1]), std::move(pieces[2])};
}

bool hasLibraryList() {
  return fileExists(quiltorFile(false, kLibraryList)) || fileExists(quiltorFile(true, kLibraryList));
}

std::string pictureFolder(const Library& library) {
  return library.label == "CLOUD" ? replaceAll(library.path, "manifest", "components") : library.path;
}

std::vector<Library> readLibraries(LookUp lookUp) {
  if (lookUp == LookUp::PlugIn) return librariesOf(quiltorFile(listIsShared(), kLibraryList));
  for (const bool allUsers : {false, true}) {
    const std::string path = quiltorFile(allUsers, kLibraryList);
    if (fileExists(path)) return librariesOf(path);
  }
  return {{"Quiltor", "", getUserDataFolder(true) + "/Quiltor"}};
}

LibrarySettings readLibrarySettings() {
  std::vector<std::string> lines = linesOf(quiltorFile(false, kSettings));
  if (lines.empty()) lines = linesOf(quiltorFile(true, kSettings));
  LibrarySettings settings;
  const std::pair<std::string_view, bool*> switches[] = {{"loud:", &settings.loadFromCloud},
                                                         {"erns:", &settings.convertPatterns},
                                                         {"port:", &settings.copyOnImport},
                                                         {"ders:", &settings.flattenSubfolders}};
  for (const std::string& line : lines) {
    if (auto value = valueBehind(line, kBaseFolderMarker)) settings.baseFolder = std::move(*value);
    for (size_t i = 0; i < std::size(kAddFolderMarkers); ++i) {
      if (auto value = valueBehind(line, kAddFolderMarkers[i])) settings.addFolders[i] = std::move(*value);
    }
    for (const auto& [marker, flag] : switches) {
      if (const auto value = valueBehind(line, marker)) *flag = *value == "true";
    }
  }
  return settings;
}

ConversionFolders readConversionFolders() {
  const bool shared = listIsShared();
  ConversionFolders folders;
  for (const Library& library : librariesOf(quiltorFile(shared, kLibraryList))) {
    folders.images.push_back(pictureFolder(library));
  }
  folders.patterns = folders.images;

  const bool settingsAreShared = shared && fileExists(quiltorFile(true, kSettings));
  for (const std::string& line : linesOf(quiltorFile(settingsAreShared, kSettings))) {
    if (trimChars(line, kBlanks) == kNotSet) continue;
    const auto takeFolder = [&](std::string_view marker) {
      // Deliberate: a folder that is "[not set]" is taken like any other; there is no such folder to be listed.
      if (auto value = valueBehind(line, marker)) folders.patterns.push_back(std::move(*value));
    };
    takeFolder(kBaseFolderMarker);
    for (const std::string_view marker : kAddFolderMarkers) takeFolder(marker);
  }
  return folders;
}

}  // namespace quiltor
