#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace quiltor {

// One pattern out of a Photoshop pattern file, whatever its colours were there.
struct PsPattern {
  uint32_t width = 0;
  uint32_t height = 0;
  // R, G, B, A per pixel, rows top to bottom.
  std::vector<uint8_t> pixels;
  // UTF-8; empty when the pattern has none.
  std::string name;
};

using PsPatterns = std::vector<std::unique_ptr<PsPattern>>;

// What could not be read, for those who tell the user. The texts are clauses without a full stop.
struct PatternFileReport {
  struct Failure {
    // Among all patterns of the file, those that failed included, from 0.
    uint32_t place = 0;
    std::string name;
    const char* reason = nullptr;
  };
  std::vector<Failure> failures;
  // Why the file was refused, or why the patterns that its header promises were not all tried; null otherwise.
  const char* problem = nullptr;
  // Whether patterns are missing that another time, with more memory left, might be there.
  bool outOfMemory = false;
};

// Appends every pattern of a Photoshop pattern file that can be read, in the file's order, and prints the name of each
// to the standard output. Returns 0 and closes the file when its header is good, whatever became of the patterns; -1
// and leaves it open otherwise. Safe on any contents: memory and time stay in proportion to the size of the file.
[[nodiscard]] int32_t ReadPatternFile(std::FILE* file, PsPatterns& patterns,
                                      PatternFileReport* report = nullptr) noexcept;

// Opens the file for ReadPatternFile and closes it whatever happens. -1 also when it cannot be opened.
[[nodiscard]] int32_t loadPatternFile(const std::string& path, PsPatterns& patterns,
                                      PatternFileReport* report = nullptr) noexcept;

}  // namespace quiltor
