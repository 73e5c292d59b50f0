#include "standalone/cli/convert_command.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <future>
#include <map>
#include <set>
#include <system_error>
#include <utility>

#include "base/utf8_path.h"
#include "library/cache_names.h"
#include "library/files/folders.h"
#include "library/unfinished_png.h"
#include "platform/folder.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/parallel_work.h"
#include "standalone/cli/pattern_report.h"
#include "standalone/cli/progress_bar.h"
#include "standalone/cli/quiet_output.h"
#include "standalone/cli/read_ahead.h"
#include "standalone/cli/typed_path.h"
#include "standalone/library/library_files.h"

namespace quiltor::standalone {
namespace {

std::string identity(const std::string& path) {
  std::error_code error;
  const auto canonical = std::filesystem::weakly_canonical(pathFromUtf8(path), error);
  return error ? path : utf8FromPath(canonical);
}

constexpr uint64_t kMostBytesAhead = uint64_t{256} << 20;

uint64_t bytesOf(const std::string& path) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(pathFromUtf8(path), error);
  return error ? 0 : bytes;
}

const char* describeSaving(int32_t result) {
  constexpr int32_t kCannotCreate = -1, kEmptyPicture = -2;
  if (result == kEmptyPicture) return "it has no pixels";
  return result == kCannotCreate ? "it cannot be created" : "writing failed; is the disk full?";
}

// Null when the picture stands there.
const char* save(PsPattern pattern, const std::string& target) {
  const PatternImage image = {static_cast<int32_t>(pattern.width), static_cast<int32_t>(pattern.height), 4,
                              std::move(pattern.pixels)};
  UnfinishedPng file(target);
  int32_t result = file.write(image);
  if (result == 0) result = file.finish();
  return result == 0 ? nullptr : describeSaving(result);
}

// Reads the next files and writes pictures on all cores. What decides between files and what is told goes file by file,
// so it is the same on one core.
class Conversion {
 public:
  Conversion(const ConvertOptions& options, const Console& console)
      : output_(withoutSeparatorAtEnd(pathFromUtf8(options.output))), progress_(console), work_(options.atOnce) {
    for (const std::string& source : options.sources) find(source);
  }

  void run() {
    const auto tellRest = [&] {
      while (!converting_.empty()) tellOfFirst();
    };
    showProgress();
    ReadAhead<PatternsOfFile> reading(work_,
                                      {files_.size(), [this](std::size_t file) { return bytesOf(files_[file]); },
                                       [this](std::size_t file) { return readPatterns(files_[file]); }},
                                      kMostBytesAhead);
    try {
      for (const std::string& path : files_) {
        converting_.push_back({path, {}, {}});
        convert(converting_.back(), reading.next());
      }
    } catch (...) {
      tellRest();
      throw;
    }
    tellRest();
  }

  bool succeeded() const { return failures_ == 0; }

  std::string summary() const {
    return counted(convertedFiles_, "file") + ", " + counted(patterns_, "pattern") + " converted into " +
           printable(output_) + ", " + counted(failures_, "failure");
  }

 private:
  struct Saving {
    std::string pattern, target;
    std::future<const char*> problem;

    // Waiting for what is finished gives back its thread, of which a file of many patterns would hold as many.
    bool isFinished() const {
      const bool finished = problem.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
      if (finished) problem.wait();
      return finished;
    }
  };
  struct FileConversion {
    std::string path;
    std::vector<std::string> problems;
    std::vector<Saving> savings;
  };

  void fail(const std::string& file, const std::string& problem) {
    ++failures_;
    progress_.complain("quiltor: " + printable(file + ": " + problem));
  }

  void find(const std::string& source) {
    std::vector<std::string> found;
    if (isFolder(source)) {
      if (listFolder(found, withoutSeparatorAtEnd(pathFromUtf8(source)), {.recurse = true, .includeWords = {".pat"}}) !=
          0) {
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

  void showProgress() {
    if (told_ == files_.size()) return;
    progress_.show(told_, files_.size(), utf8FromPath(pathFromUtf8(files_[told_]).filename()));
  }

  void convert(FileConversion& conversion, PatternsOfFile file) {
    const auto fail = [&](const std::string& problem) { conversion.problems.push_back(problem); };
    const std::string name = patternFileName(conversion.path);
    if (name.empty() || name == "." || name == "..") return fail("its name leaves none for a folder");
    conversion.problems = describeFailures(file.report, file.refused);
    if (file.patterns.empty() && conversion.problems.empty()) fail("it holds no patterns");
    if (file.patterns.empty()) return;
    const std::string folder = convertedPatternFolder(output_, name);
    if (!createFolderChain(folder)) return fail("the folder " + folder + " cannot be made");
    // Names that differ may lead to one folder, by a link or, on some systems, in their case alone.
    const auto made = readFolder(folder);
    if (!made) return fail("the folder " + folder + " cannot be read");
    const auto [other, first] = sources_.emplace(made->identity, conversion.path);
    if (!first && isSame(other->second, conversion.path)) return;
    if (!first) return fail("its pictures would replace those of " + other->second);
    removeUnfinished(folder);
    const std::vector<std::size_t> places = placesOf(file);
    for (std::size_t i = 0; i < file.patterns.size(); ++i) {
      startSaving(conversion, std::move(*file.patterns[i]), places[i], convertedPatternPath(output_, name, i));
    }
  }

  void startSaving(FileConversion& conversion, PsPattern pattern, std::size_t place, const std::string& target) {
    std::string described = describePlace(place, pattern.name);
    auto problem =
        work_.start([pattern = std::move(pattern), target]() mutable { return save(std::move(pattern), target); });
    conversion.savings.push_back({std::move(described), target, std::move(problem)});
    for (const Saving& saving : conversion.savings) static_cast<void>(saving.isFinished());
    // Of the last one, not all pictures may have been started.
    while (converting_.size() > 1 && isFinished(converting_.front())) tellOfFirst();
  }

  static bool isFinished(const FileConversion& conversion) {
    return std::ranges::all_of(conversion.savings, &Saving::isFinished);
  }

  void tellOfFirst() {
    FileConversion conversion = std::move(converting_.front());
    converting_.pop_front();
    for (const std::string& problem : conversion.problems) fail(conversion.path, problem);
    const std::size_t before = patterns_;
    for (Saving& saving : conversion.savings) {
      if (const char* problem = saving.problem.get()) {
        fail(conversion.path, saving.pattern + ": " + saving.target + ": " + problem);
      } else {
        ++patterns_;
      }
    }
    if (patterns_ > before) ++convertedFiles_;
    ++told_;
    showProgress();
  }

  const std::string output_;
  ProgressBar progress_;
  std::vector<std::string> files_;
  std::set<std::string> known_;
  std::map<FolderIdentity, std::string> sources_;  // of what stands in the output's folders
  std::size_t convertedFiles_ = 0, patterns_ = 0, failures_ = 0;
  std::size_t told_ = 0;  // of the files
  ParallelWork work_;
  std::deque<FileConversion> converting_;  // of the files that are not told of yet
};

}  // namespace

bool runConvert(const ConvertOptions& options, const Console& console) {
  std::error_code error;
  if (std::filesystem::exists(pathFromUtf8(options.output), error) && !isFolder(options.output)) {
    throw CommandFailure("--output: " + options.output + ": it is a file, expected a folder");
  }
  std::string summary;
  bool succeeded = false;
  {
    const QuietOutput quiet;
    Conversion conversion(options, console);
    conversion.run();
    summary = conversion.summary();
    succeeded = conversion.succeeded();
  }
  console.out << summary << '\n';
  return succeeded;
}

}  // namespace quiltor::standalone
