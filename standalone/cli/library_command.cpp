#include "standalone/cli/library_command.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <system_error>

#include "base/utf8_path.h"
#include "library/files/file_exists.h"
#include "library/files/folders.h"
#include "library/files/user_data_folder.h"
#include "library/library_config.h"
#include "library/library_conversion.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/library_lookup.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/pattern_report.h"
#include "standalone/cli/progress_bar.h"
#include "standalone/cli/quiet_output.h"
#include "standalone/cli/typed_path.h"
#include "standalone/library/image_folders.h"
#include "standalone/library/library_files.h"
#include "standalone/library/library_scan.h"

namespace quiltor::standalone {
namespace {

void print(const std::vector<Library>& libraries, bool flatten, std::ostream& out) {
  constexpr std::size_t kGap = 2;
  std::size_t nameWidth = std::string_view("LIBRARY").size();
  for (const Library& library : libraries) nameWidth = std::max(nameWidth, columnsOf(displayName(library)));
  std::size_t pictures = 0;
  const auto row = [&](const std::string& name, const std::string& count, const std::string& folder) {
    constexpr std::size_t kCountWidth = 8;
    out << name << std::string(nameWidth + kGap - columnsOf(name), ' ')
        << std::string(kCountWidth - std::min(kCountWidth, count.size()), ' ') << count << std::string(kGap, ' ')
        << folder << '\n';
  };
  if (!libraries.empty()) row("LIBRARY", "PICTURES", "FOLDER");
  for (const Library& library : libraries) {
    const std::size_t count = libraryImages(library, flatten).size();
    const std::string folder = pictureFolder(library);
    pictures += count;
    row(displayName(library), std::to_string(count), printable(folder) + (isFolder(folder) ? "" : " (no such folder)"));
  }
  out << (libraries.empty() ? "" : "\n") << counted(libraries.size(), "library") << ", " << counted(pictures, "picture")
      << '\n';
}

std::string listFile(bool allUsers) { return getUserDataFolder(allUsers) + "/Quiltor/libpaths.txt"; }

// What the settings can say and every reader understands: absolute, without a separator at the end.
std::string configuredFolder(const std::string& typed) {
  std::error_code error;
  const std::string path =
      withoutSeparatorAtEnd(std::filesystem::absolute(pathFromUtf8(typed), error).lexically_normal());
  if (error || !isFolder(path)) throw CommandFailure(typed + ": no such folder");
  if (path.find_first_of("*\r\n") != std::string::npos) {
    throw CommandFailure(standalone::quoted(typed) +
                         ": a folder of the library cannot have a \"*\" or a line break in its path");
  }
  return path;
}

LibrarySettings newSettings(const LibraryScanOptions& options) {
  LibrarySettings settings = readLibrarySettings();
  settings.baseFolder = fixedBaseFolder();
  settings.loadFromCloud = options.cloud.value_or(settings.loadFromCloud);
  settings.flattenSubfolders = options.flatten.value_or(settings.flattenSubfolders);
  if (options.folders.empty()) return settings;
  if (options.folders.size() > settings.addFolders.size()) {
    throw UsageError("library scan: the settings hold at most " + counted(settings.addFolders.size(), "folder") +
                     ", not " + std::to_string(options.folders.size()) + "; name a folder above several of them");
  }
  settings.addFolders.fill("");
  std::ranges::transform(options.folders, settings.addFolders.begin(), configuredFolder);
  return settings;
}

// Tells of the files that the conversion passes over in silence, of each only once: several folders may lead to it.
class UnreadableFiles {
 public:
  void tell(const ConversionProgress& progress, ProgressBar& bar) {
    const std::vector<std::string> problems = problemsOf(progress);
    const std::string file(progress.file);
    if (problems.empty() || !told_.insert(file).second) return;
    count_ += problems.size();
    for (const std::string& problem : problems) bar.complain("quiltor: " + printable(file + ": " + problem));
  }

  std::size_t count() const { return count_; }

 private:
  static std::vector<std::string> problemsOf(const ConversionProgress& progress) {
    if (progress.report) return describeFailures(*progress.report, progress.isUnreadable);
    if (progress.isUnreadable) return {"no picture can be read from it"};
    return {};
  }

  std::set<std::string> told_;
  std::size_t count_ = 0;
};

}  // namespace

void runLibraryList(const Console& console) {
  print(shownLibraries(), readLibrarySettings().flattenSubfolders, console.out);
  const bool own = fileExists(listFile(false)), shared = fileExists(listFile(true));
  if (!own && !shared) {
    console.out << "There is no list of libraries yet; `quiltor library scan FOLDER...` writes it.\n";
  } else if (own && shared && !isSame(listFile(false), listFile(true))) {
    console.err << "quiltor: two lists: the gallery reads " << listFile(false) << ", the conversion " << listFile(true)
                << "; scanning with --all-users leaves one\n";
  }
}

void runLibraryScan(const LibraryScanOptions& options, const Console& console) {
  const LibrarySettings settings = newSettings(options);
  const FoundLibraries found = findLibraries(settings);
  SavedLibrary saved;
  try {
    saved = saveLibrary(settings, found.libraries, options.allUsers.value_or(!settingsAreTheUsers()));
  } catch (const SaveError& error) {
    throw CommandFailure(error.what());
  }
  if (saved.refusedForAll) {
    console.err << "quiltor: Error saving to all users folder, please check permissions. Now writing to this user's "
                   "folder instead.\n";
  }
  for (const std::string& path : found.leftOut) {
    console.err << "quiltor: " << standalone::quoted(path) << ": left out, since the list cannot hold such a name\n";
  }
  print(found.libraries, settings.flattenSubfolders, console.out);
  console.out << "Written to " << saved.folder << "; `quiltor library convert` makes the thumbnails.\n";
}

bool runLibraryConvert(const Console& console) {
  const ConversionFolders folders = readConversionFolders();
  // Deliberate: the effect converts nothing while no library has a picture. Who asks for it in words gets the patterns
  // of folders that hold nothing else, which then are libraries.
  if (folders.patterns.empty()) {
    throw CommandFailure("there is no library to convert; `quiltor library scan FOLDER...` lists those below a folder");
  }
  ConversionProgress end;
  UnreadableFiles unreadable;
  {
    const QuietOutput quiet;
    ProgressBar bar(console);
    convertLibraryFiles(folders.images, folders.patterns, [&](const ConversionProgress& progress) {
      end = progress;
      unreadable.tell(progress, bar);
      bar.show(progress.done, progress.total, utf8FromPath(pathFromUtf8(progress.file).filename()));
    });
  }
  console.out << counted(end.total, "file") << " looked through, " << counted(end.made, "picture") << " made, "
              << counted(end.failures + unreadable.count(), "failure") << '\n';
  if (end.failures > 0) {
    const std::string log = getUserDataFolder(false) + "/Quiltor/log.txt";
    console.err << "quiltor: " << counted(end.failures, "failure") << "; "
                << (fileExists(log) ? log + " tells which" : "a log is kept where the folder of " + log + " exists")
                << '\n';
  }
  return end.failures + unreadable.count() == 0;
}

}  // namespace quiltor::standalone
