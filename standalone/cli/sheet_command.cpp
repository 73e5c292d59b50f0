#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "base/utf8_path.h"
#include "formats/image_file.h"
#include "library/cache_names.h"
#include "library/files/text_pieces.h"
#include "library/files/user_data_folder.h"
#include "library/thumbnail.h"
#include "library/unfinished_png.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/library_command.h"
#include "standalone/cli/library_lookup.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/number_order.h"
#include "standalone/cli/progress_bar.h"
#include "standalone/cli/typed_path.h"
#include "standalone/library/image_folders.h"
#include "standalone/sheet/contact_sheet.h"

namespace quiltor::standalone {
namespace {

// The kept one, or what would be kept of a picture that was not converted yet; empty when it cannot be read.
PatternImage thumbnailOf(const std::string& path) {
  const std::string kept = getUserDataFolder(true) + "/Quiltor/.cache/" + intToString(pathHash(path)) + ".png";
  PatternImage image;
  if (LoadPngImage(kept, image) == 0 && isWhole(image)) return image;
  const bool png = toLowerCopy(path).ends_with(".png");
  static_cast<void>(png ? LoadPngImage(path, image) : LoadJpegImage(path, image));
  return isWhole(image) ? makeThumbnail(image) : PatternImage();
}

std::string shownName(const std::string& path) { return utf8FromPath(pathFromUtf8(path).stem()); }

// The hundredth pattern of a file comes behind the others and not between the tenth and the eleventh.
void sortByNumbers(std::vector<std::string>& paths) { std::ranges::sort(paths, comesBefore); }

ContactSheet sheetOf(const Library& library, const std::vector<std::string>& images, const Console& console) {
  ContactSheet sheet{displayName(library), counted(images.size(), "picture"), {}};
  if (images.size() > kMostSheetEntries)
    sheet.remark += ", the first " + std::to_string(kMostSheetEntries) + " of them";
  ProgressBar bar(console);
  const std::size_t count = std::min(images.size(), kMostSheetEntries);
  for (std::size_t i = 0; i < count; ++i) {
    bar.show(i, count, shownName(images[i]));
    sheet.entries.push_back({shownName(images[i]), thumbnailOf(images[i])});
  }
  return sheet;
}

}  // namespace

void runLibrarySheet(const LibrarySheetOptions& options, const Console& console) {
  requirePngName("--output", options.output);
  const std::vector<Library> libraries = shownLibraries();
  const Library& library = findLibrary(libraries, options.library);
  std::vector<std::string> images = libraryImages(library, readLibrarySettings().flattenSubfolders);
  if (images.empty()) throw CommandFailure(displayName(library) + ": no pictures in " + pictureFolder(library));
  sortByNumbers(images);
  UnfinishedPng file(utf8FromPath(options.output));
  if (file.write(drawContactSheet(sheetOf(library, images, console))) != 0 || file.finish() != 0) {
    throw CommandFailure("cannot write " + utf8FromPath(options.output) + ": no such folder, no permission or no room");
  }
}

}  // namespace quiltor::standalone
