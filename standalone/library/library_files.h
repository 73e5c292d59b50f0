#pragma once

#include <span>
#include <stdexcept>
#include <string>

#include "library/library_config.h"

namespace quiltor::standalone {

// What the dialogs write: the settings and the list of libraries that was made from them.

// Whether two paths lead to one file or folder that is there.
[[nodiscard]] bool isSame(const std::string& first, const std::string& second);

// Whether a configured folder is one and not the mark of none.
[[nodiscard]] bool isSet(const std::string& folder);

// The one folder that cannot be chosen.
[[nodiscard]] std::string fixedBaseFolder();

[[nodiscard]] std::string settingsText(const LibrarySettings& settings);

// A line of the list without its end.
[[nodiscard]] std::string listLine(const Library& library);
[[nodiscard]] std::string listText(std::span<const Library> libraries);

// Where the settings that count to the dialogs are: the user's come before those of all users.
[[nodiscard]] bool settingsAreTheUsers();

class SaveError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct SavedLibrary {
  std::string folder;          // where both files are now
  bool refusedForAll = false;  // all users were meant, and that folder could not be written
};

// Writes both files or none, for all users or for this one, who also gets them when those of all users cannot be
// written. What is written for all users takes the place of this user's own files. Throws SaveError.
SavedLibrary saveLibrary(const LibrarySettings& settings, std::span<const Library> libraries, bool allUsers);

}  // namespace quiltor::standalone
