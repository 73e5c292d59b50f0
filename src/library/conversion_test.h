#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "formats/test_pattern_file.h"
#include "formats/test_pattern_reading.h"
#include "formats/test_pictures.h"
#include "library/data_folders.h"
#include "library/files/read_text.h"
#include "library/library_conversion.h"
#include "platform/folder.h"

namespace quiltor {

// For tests: a library of one folder for pictures and pattern files, and what its conversion makes.
class ConversionTest : public testing::Test {
 protected:
  ConversionTest() {
    std::filesystem::create_directories(library());
    writeText(data_.user("log.txt"), "");
  }

  std::string library() const { return data_.path("library"); }
  // As the conversion names it.
  std::string library(const std::string& name) const { return library() + kPathSeparator + name; }
  std::string converted(const std::string& name) const { return data_.all("PS Patterns/" + name); }

  void writePatterns(const std::string& path, const TestPatternFile& file) { writeBytes(path, file.bytes()); }
  // So many patterns of two grey pixels, which tell the place in the file.
  void writeGreyPatterns(const std::string& path, size_t count) {
    TestPatternFile file;
    for (size_t i = 0; i < count; ++i) {
      file.patterns.push_back(greyPattern());
      file.patterns.back().planes[0].samples = {static_cast<uint8_t>(i), 255};
    }
    writePatterns(path, file);
  }

  void convert() { convert({library()}, {library()}); }
  void convert(const std::vector<std::string>& images, const std::vector<std::string>& patterns) {
    const CapturedOutput names(data_.path("names " + std::to_string(std::random_device()())));
    convertLibraryFiles(images, patterns);
  }

  std::vector<std::string> log() const {
    std::vector<std::string> lines;
    readTextLines(data_.user("log.txt"), lines);
    // The system's end of a line may have a carriage return.
    for (std::string& line : lines) {
      if (line.ends_with('\r')) line.pop_back();
    }
    return lines;
  }

  // All files below the folder of the converted patterns or that of the thumbnails, with their contents.
  std::map<std::string, Bytes> results() const {
    std::map<std::string, Bytes> files;
    for (const char* folder : {"PS Patterns", ".cache"}) {
      if (!std::filesystem::is_directory(data_.all(folder))) continue;
      for (const auto& entry : std::filesystem::recursive_directory_iterator(data_.all(folder))) {
        if (!entry.is_regular_file()) continue;
        files[entry.path().lexically_relative(data_.all(".")).generic_string()] = readBytes(entry.path().string());
      }
    }
    return files;
  }
  std::vector<std::string> resultNames() const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : results()) names.push_back(name);
    return names;
  }

  DataFolders data_;
};

}  // namespace quiltor
