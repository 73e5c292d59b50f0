#include "standalone/cli/convert_command.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <utility>

#include "library/cache_names.h"
#include "library/files/folders.h"
#include "library/unfinished_png.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/pattern_report.h"
#include "standalone/cli/progress_bar.h"

namespace quiltor::standalone {
namespace {

// Without the separators at its end.
std::string folderPath(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

std::string identity(const std::string& path) {
  std::error_code error;
  const auto canonical = std::filesystem::weakly_canonical(path, error);
  return error ? path : canonical.string();
}

const char* describeSaving(int32_t result) {
  constexpr int32_t kCannotCreate = -1, kEmptyPicture = -2;
  if (result == kEmptyPicture) return "it has no pixels";
  return result == kCannotCreate ? "it cannot be created" : "writing failed; is the disk full?";
}

class Conversion {
 public:
  Conversion(const ConvertOptions& options, const Console& console)
      : output_(folderPath(options.output)), progress_(console) {
    for (const std::string& source : options.sources) find(source);
  }

  void run() {
    for (std::size_t i = 0; i < files_.size(); ++i) {
      progress_.show(i, files_.size(), std::filesystem::path(files_[i]).filename().string());
      convertFile(files_[i]);
    }
  }

  bool succeeded() const { return failures_ == 0; }

  std::string summary() const {
    return counted(convertedFiles_, "file") + ", " + counted(patterns_, "pattern") + " converted into " +
           printable(output_) + ", " + counted(failures_, "failure");
  }

 private:
  void fail(const std::string& file, const std::string& problem) {
    ++failures_;
    progress_.complain("quiltor: " + printable(file + ": " + problem));
  }

  void find(const std::string& source) {
    std::vector<std::string> found;
    if (isFolder(source)) {
      if (listFolder(found, folderPath(source), {.recurse = true, .includeWords = {".pat"}}) != 0) {
        return fail(source, "the folder cannot be read");
      }
      std::erase_if(found, [](const std::string& path) { return !endsAsPatternFile(path); });
      if (found.empty()) fail(source, "no .pat file in this folder or below");
    } else if (endsAsPatternFile(source)) {
      found.push_back(source);
    } else {
      fail(source, "expected a .pat file or a folder");
    }
    for (std::string& path : found) {
      // A file may be named and lie in a named folder too.
      if (known_.insert(identity(path)).second) files_.push_back(std::move(path));
    }
  }

  void convertFile(const std::string& path) {
    const std::string name = patternFileName(path);
    if (name.empty() || name == "." || name == "..") return fail(path, "its name leaves none for a folder");
    PatternsOfFile file = readPatterns(path);
    const std::vector<std::string> problems = describeFailures(file.report, file.refused);
    for (const std::string& problem : problems) fail(path, problem);
    if (file.patterns.empty() && problems.empty()) fail(path, "it holds no patterns");
    if (file.patterns.empty()) return;
    const auto [other, first] = sources_.emplace(name, path);
    if (!first) return fail(path, "its pictures would replace those of " + other->second);
    const std::string folder = convertedPatternFolder(output_, name);
    if (!createFolderChain(folder)) return fail(path, "the folder " + folder + " cannot be made");
    removeUnfinished(folder);
    const std::size_t before = patterns_;
    savePatterns(path, name, file);
    if (patterns_ > before) ++convertedFiles_;
  }

  void savePatterns(const std::string& path, const std::string& name, PatternsOfFile& file) {
    const std::vector<std::size_t> places = placesOf(file);
    for (std::size_t i = 0; i < file.patterns.size(); ++i) {
      PsPattern& pattern = *file.patterns[i];
      const std::string target = convertedPatternPath(output_, name, i);
      if (const char* problem = save(pattern, target)) {
        fail(path, describePlace(places[i], pattern.name) + ": " + target + ": " + problem);
      } else {
        ++patterns_;
      }
      file.patterns[i].reset();
    }
  }

  static const char* save(PsPattern& pattern, const std::string& target) {
    const PatternImage image = {static_cast<int32_t>(pattern.width), static_cast<int32_t>(pattern.height), 4,
                                std::move(pattern.pixels)};
    UnfinishedPng file(target);
    int32_t result = file.write(image);
    if (result == 0) result = file.finish();
    return result == 0 ? nullptr : describeSaving(result);
  }

  const std::string output_;
  ProgressBar progress_;
  std::vector<std::string> files_;
  std::set<std::string> known_;
  std::map<std::string, std::string> sources_;  // of what stands in the output, by its name
  std::size_t convertedFiles_ = 0, patterns_ = 0, failures_ = 0;
};

}  // namespace

bool runConvert(const ConvertOptions& options, const Console& console) {
  std::error_code error;
  if (std::filesystem::exists(options.output, error) && !isFolder(options.output)) {
    throw CommandFailure("--output: " + options.output + ": it is a file, expected a folder");
  }
  std::string summary;
  bool succeeded = false;
  {
    Conversion conversion(options, console);
    conversion.run();
    summary = conversion.summary();
    succeeded = conversion.succeeded();
  }
  console.out << summary << '\n';
  return succeeded;
}

}  // namespace quiltor::standalone
