#include "standalone/library/library_files.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/utf8_path.h"
#include "library/files/folders.h"
#include "library/files/read_text.h"
#include "library/files/user_data_folder.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace quiltor::standalone {
namespace {

constexpr char kNotSet[] = "[not set]";
constexpr char kLineEnd[] = "\r\n";
constexpr char kSettingsFile[] = "/config.txt", kListFile[] = "/libpaths.txt";

// Empty when the system knows no such data folder.
std::string quiltorFolder(bool allUsers) {
  const std::string folder = getUserDataFolder(allUsers);
  return folder.empty() ? folder : folder + "/Quiltor";
}

// Some files that get their names together, once all of them are whole.
class NewFiles {
 public:
  NewFiles() = default;
  NewFiles(const NewFiles&) = delete;
  NewFiles& operator=(const NewFiles&) = delete;
  ~NewFiles() {
    for (const std::string& path : unfinished_) removeFile(temporary(path));
  }

  bool write(const std::string& path, const std::string& text) {
    std::FILE* const file = openFile(temporary(path), "wb");
    if (!file) return false;
    unfinished_.push_back(path);
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return closeWritten(file) && written;
  }

  bool finish() {
    while (!unfinished_.empty()) {
      if (!replaceFile(temporary(unfinished_.back()), unfinished_.back())) return false;
      unfinished_.pop_back();
    }
    return true;
  }

 private:
  static std::string temporary(const std::string& path) { return path + ".part"; }

  std::vector<std::string> unfinished_;
};

bool writeBoth(const std::string& folder, const std::string& settings, const std::string& list) {
  NewFiles files;
  return !folder.empty() && createFolderChain(folder) && files.write(folder + kSettingsFile, settings) &&
         files.write(folder + kListFile, list) && files.finish();
}

}  // namespace

bool isSame(const std::string& first, const std::string& second) {
  std::error_code error;
  return std::filesystem::equivalent(pathFromUtf8(first), pathFromUtf8(second), error);
}

bool isSet(const std::string& folder) { return !folder.empty() && folder != kNotSet; }

std::string fixedBaseFolder() { return getUserDataFolder(true) + kPathSeparator + "Quiltor"; }

std::string settingsText(const LibrarySettings& settings) {
  std::string text;
  const auto add = [&text](const std::string& key, const std::string& value) { text += key + ": " + value + kLineEnd; };
  const auto word = [](bool on) { return on ? "true" : "false"; };
  add("baseFolder", settings.baseFolder);
  for (std::size_t i = 0; i < settings.addFolders.size(); ++i) {
    const std::string& folder = settings.addFolders[i];
    add("addFolder" + std::to_string(i + 1), folder.empty() ? kNotSet : folder);
  }
  add("loadFromCloud", word(settings.loadFromCloud));
  add("copyOnImport", word(settings.copyOnImport));
  add("convertPatterns", word(settings.convertPatterns));
  add("flattenSubfolders", word(settings.flattenSubfolders));
  return text + kLineEnd;
}

std::string listLine(const Library& library) { return library.label + "*" + library.name + "*" + library.path; }

std::string listText(std::span<const Library> libraries) {
  std::string text;
  for (const Library& library : libraries) text += listLine(library) + kLineEnd;
  return text;
}

bool settingsAreTheUsers() {
  std::vector<std::string> lines;
  readTextLines(quiltorFolder(false) + kSettingsFile, lines);
  return !lines.empty();
}

SavedLibrary saveLibrary(const LibrarySettings& settings, std::span<const Library> libraries, bool allUsers) {
  const std::string settingsLines = settingsText(settings);
  const std::string list = listText(libraries);
  const std::string shared = quiltorFolder(true), own = quiltorFolder(false);
  if (allUsers && writeBoth(shared, settingsLines, list)) {
    if (!own.empty() && !isSame(shared, own)) {
      for (const char* file : {kSettingsFile, kListFile}) removeFile(own + file);
    }
    return {shared};
  }
  if (writeBoth(own, settingsLines, list)) return {own, allUsers};
  throw SaveError("Error saving to user's folder, please check permissions.");
}

}  // namespace quiltor::standalone
