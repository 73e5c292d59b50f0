#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/library_config.h"
#include "platform/folder.h"

namespace quiltor::standalone {

// Whether a file's name is that of a picture in a library: it ends in .png, .jpg or .jpeg of any case.
[[nodiscard]] bool isImageName(std::string_view name);

// A folder's path with the separator and the name.
[[nodiscard]] std::string pathIn(const std::string& folder, const std::string& name);

// Calls `see` with the folder and those below it, each before those in it, and whether it directly holds a picture.
// Folders with the name ".cache" are left out; each folder is entered once, however many links lead to it, and the one
// above, from which the search comes, not at all.
void forEachImageFolder(const std::string& folder, const std::function<void(const std::string& path, bool)>& see,
                        std::optional<FolderIdentity> above = {});

// The pictures directly in the folder.
[[nodiscard]] std::vector<std::string> imagesIn(const std::string& folder);

// The pictures of a library as the gallery shows them: those in its folder, with `flatten` those below as well.
[[nodiscard]] std::vector<std::string> libraryImages(const Library& library, bool flatten);

}  // namespace quiltor::standalone
