#include "library/library_conversion.h"

#include <algorithm>
#include <initializer_list>
#include <new>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include "formats/image_file.h"
#include "formats/ps_pattern.h"
#include "host/log.h"
#include "library/cache_names.h"
#include "library/files/file_exists.h"
#include "library/files/folders.h"
#include "library/files/text_pieces.h"
#include "library/files/user_data_folder.h"
#include "library/library_config.h"
#include "library/thumbnail.h"
#include "library/unfinished_png.h"
#include "platform/process.h"

namespace quiltor {
namespace {

constexpr int32_t kEmptyPicture = -2;

void logLine(std::initializer_list<std::string_view> pieces) {
  std::string line;
  for (const std::string_view piece : pieces) line += piece;
  writeLog(std::move(line));
}

std::string lastFour(const std::string& path) {
  return toLowerCopy(path.substr(path.size() - std::min<size_t>(path.size(), 4)));
}

PatternImage loadPicture(const std::string& path) {
  PatternImage image;
  static_cast<void>(lastFour(path) == ".png" ? LoadPngImage(path, image) : LoadJpegImage(path, image));
  return image;
}

class Conversion {
 public:
  Conversion(const std::string& root, const std::function<void(const ConversionProgress&)>& progress)
      : patternsFolder_(root + "/Quiltor/PS Patterns"), cacheFolder_(root + "/Quiltor/.cache"), tell_(progress) {}

  void run(const std::vector<std::string>& imageFolders, const std::vector<std::string>& patternFolders) {
    std::vector<std::string> images, patterns;
    for (const std::string& folder : imageFolders) {
      attempt("Exception in image file finder '", folder, "", [&] {
        listFolder(images, folder, {.includeWords = {".png", ".jp"}, .excludeWords = {".cache"}});
      });
    }
    for (const std::string& folder : patternFolders) {
      attempt("Exception in pattern file finder '", folder, "", [&] {
        listFolder(patterns, folder, {.recurse = true, .includeWords = {".pat"}, .excludeWords = {".cache"}});
      });
    }
    progress_.total = patterns.size() + images.size();
    forEach(patterns, [&](const std::string& path) { convertPatternFile(path); });
    createFolderChain(cacheFolder_ + "/");
    removeUnfinished(cacheFolder_);
    forEach(images, [&](const std::string& path) { convertImage(path); });
  }

 private:
  template <class Convert>
  void forEach(const std::vector<std::string>& paths, Convert convert) {
    for (const std::string& path : paths) {
      progress_.file = path;
      progress_.isUnreadable = false;
      progress_.report = nullptr;
      convert(path);
      ++progress_.done;
      if (tell_) tell_(progress_);
    }
  }

  // Runs one step, and logs one that throws. Whether it did not.
  template <class Step>
  bool attempt(std::string_view opening, const std::string& path, const std::string& target, Step step) {
    try {
      step();
      return true;
    } catch (...) {
      ++progress_.failures;
    }
    try {
      logLine({opening, path, "'", target.empty() ? "" : " to '", target, target.empty() ? "" : "'"});
    } catch (...) {
      // Nothing is left to say it with.
    }
    return false;
  }

  void tellOfSaving(const std::string& path, int32_t result) {
    if (result == 0) {
      ++progress_.made;
      return;
    }
    ++progress_.failures;
    logLine({"Error saving '", path, "': ", intToString(result)});
  }

  void convertPatternFile(const std::string& path) {
    PsPatterns patterns;
    std::string name;
    const bool complete = attempt("Exception in pattern loader '", path, "", [&] {
      if (lastFour(path) != ".pat") return;
      name = patternFileName(path);
      if (fileExists(convertedPatternPath(patternsFolder_, name, 0))) return;
      const std::string folder = convertedPatternFolder(patternsFolder_, name);
      createFolderChain(folder);
      removeUnfinished(folder);
      // Deliberate: a file that cannot be read has no patterns, and that is all.
      report_ = {};
      progress_.isUnreadable = loadPatternFile(path, patterns, &report_) != 0;
      progress_.report = &report_;
      if (report_.outOfMemory) throw std::bad_alloc();
    });
    convertPatterns(path, name, patterns, complete);
  }

  // complete: these are all that the file holds.
  void convertPatterns(const std::string& path, const std::string& name, PsPatterns& patterns, bool complete) {
    std::optional<UnfinishedPng> first;
    for (size_t index = 0; index < patterns.size(); ++index) {
      std::string target;
      const bool attempted = attempt("Exception in pattern converter '", path, target, [&] {
        target = convertedPatternPath(patternsFolder_, name, index);
        logLine({"Converting pattern '", path, "' to '", target, "'"});
        UnfinishedPng file(target);
        const int32_t written = file.write(pictureOf(*patterns[index]));
        if (written == 0 && index == 0) {
          first.emplace(std::move(file));
          return;
        }
        const int32_t result = written == 0 ? file.finish() : written;
        tellOfSaving(target, result);
        // An empty pattern stays one and a folder in the way stays there; anything else may be well the next time.
        if (result != 0 && result != kEmptyPicture && !isFolder(target)) complete = false;
      });
      complete = complete && attempted;
      patterns[index].reset();
    }
    // The first picture says that all are there.
    if (!first || !complete) return;
    attempt("Exception in pattern converter '", path, first->path(),
            [&] { tellOfSaving(first->path(), first->finish()); });
  }

  static PatternImage pictureOf(PsPattern& pattern) {
    return {static_cast<int32_t>(pattern.width), static_cast<int32_t>(pattern.height), 4, std::move(pattern.pixels)};
  }

  void convertImage(const std::string& path) {
    std::string target;
    attempt("Exception in image converter '", path, target, [&] {
      const std::string ending = lastFour(path);
      if (ending != ".jpg" && ending != "jpeg" && ending != ".png") return;
      target = cacheFolder_ + "/" + intToString(pathHash(path)) + ".png";
      if (fileExists(target)) return;
      logLine({"Converting image '", path, "' to '", target, "'"});
      PatternImage image;
      attempt("Exception in image loader '", path, "", [&] { image = loadPicture(path); });
      progress_.isUnreadable = !isWhole(image);
      if (progress_.isUnreadable) return;
      const PatternImage thumbnail = makeThumbnail(image);
      attempt("Exception in image saver '", path, target, [&] {
        UnfinishedPng file(target);
        const int32_t result = file.write(thumbnail);
        tellOfSaving(target, result == 0 ? file.finish() : result);
      });
    });
  }

  const std::string patternsFolder_;
  const std::string cacheFolder_;
  const std::function<void(const ConversionProgress&)>& tell_;
  ConversionProgress progress_;
  PatternFileReport report_;
};

}  // namespace

void convertLibraryFiles(const std::vector<std::string>& imageFolders, const std::vector<std::string>& patternFolders,
                         const std::function<void(const ConversionProgress&)>& progress) noexcept {
  try {
    const std::string root = getUserDataFolder(true);
    // Without such a folder, the root of the drive is not meant.
    if (!root.empty()) Conversion(root, progress).run(imageFolders, patternFolders);
  } catch (...) {
    // What is missing is made the next time.
  }
}

void startLibraryConversion() noexcept {
  try {
    ConversionFolders folders = readConversionFolders();
    if (folders.images.empty() || !keepModuleLoaded()) return;
    std::thread([folders = std::move(folders)] { convertLibraryFiles(folders.images, folders.patterns); }).detach();
  } catch (...) {
    // A library that is not converted now is converted the next time.
  }
}

}  // namespace quiltor
