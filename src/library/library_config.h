#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor {

// Two files in the folder "Quiltor" of a data folder: "libpaths.txt" lists the libraries and "config.txt" holds the
// settings that the list was made from. They are read afresh each time; a missing file reads as an empty one.

// Which data folder is looked in first. Deliberate: the dialogs and the plug-in have opposite orders. Of the settings'
// making, a machine has one pair of files that counts.
enum class LookUp { Dialogs, PlugIn };

// The first three of the fields that "*" separates; a missing field is empty.
std::array<std::string, 3> threeFields(std::string_view text);

// Whether either data folder holds a list of libraries. Until one does there is nothing to pick a pattern from.
bool hasLibraryList();

struct Library {
  std::string label;
  std::string name;
  std::string path;
};

// Where a library's pictures are: its path, or the folder beside the manifest when it is one of the cloud's.
std::string pictureFolder(const Library& library);

// The lines of libpaths.txt. To the dialogs a machine without that file has one library, the shared folder itself.
std::vector<Library> readLibraries(LookUp lookUp);

struct LibrarySettings {
  std::string baseFolder;
  std::array<std::string, 4> addFolders;  // as written, so "[not set]" may stand there
  bool loadFromCloud = true;
  bool copyOnImport = true;
  bool convertPatterns = true;
  bool flattenSubfolders = false;
};

// config.txt as the dialogs read it: the user's, or the shared one when that has no lines.
LibrarySettings readLibrarySettings();

struct ConversionFolders {
  std::vector<std::string> images;
  std::vector<std::string> patterns;
};

// The folders that are to be converted, in the order of the files. No images: there is nothing to do, whatever patterns
// holds.
ConversionFolders readConversionFolders();

}  // namespace quiltor
