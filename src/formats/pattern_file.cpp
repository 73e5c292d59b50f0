#include <algorithm>
#include <array>
#include <string_view>

#include "base/scope_guard.h"
#include "formats/byte_reader.h"
#include "formats/pattern_record.h"
#include "formats/ps_pattern.h"
#include "platform/file.h"

namespace quiltor {
namespace {

constexpr int32_t kFailed = -1;

// Null for a good header.
const char* readHeader(ByteReader& in, int32_t& count) {
  constexpr std::string_view kSignature = "8BPT";
  std::array<uint8_t, kSignature.size()> signature;
  if (!in.read(std::span<uint8_t>(signature)) || !std::ranges::equal(signature, kSignature)) {
    return "it does not begin with 8BPT and is no pattern file";
  }
  uint16_t version = 0;
  if (!in.read(version)) return "it ends before its version";
  if (version != 1) return "its version is not 1";
  if (!in.read(count)) return "it ends before its number of patterns";
  if (count == 0) return "it says that it holds no patterns";
  return nullptr;
}

// Null as long as there may be another pattern to read.
const char* reasonToStop(const ByteReader& in, AfterRecord after) {
  if (after == AfterRecord::Stop) return "a pattern says that it reaches beyond the end of the file";
  if (in.left() == 0) return "it ends before all of its patterns";
  // Lists that claim to end before their planes do would have the same bytes read again and again.
  if (in.rewound() > in.size()) return "its patterns overlap";
  return nullptr;
}

void readPattern(ByteReader& in, uint32_t place, PsPatterns& patterns, PatternFileReport& report, AfterRecord& after) {
  auto pattern = std::make_unique<PsPattern>();
  const char* reason = nullptr;
  try {
    reason = readPatternRecord(in, *pattern, after);
  } catch (...) {
    reason = "there is not enough memory for it";
    report.outOfMemory = true;
  }
  if (reason) {
    report.failures.push_back({.place = place, .name = std::move(pattern->name), .reason = reason});
  } else {
    patterns.push_back(std::move(pattern));
  }
}

}  // namespace

int32_t ReadPatternFile(std::FILE* file, PsPatterns& patterns, PatternFileReport* report) noexcept {
  PatternFileReport unread;
  if (!report) report = &unread;
  ByteReader in(file);
  int32_t count = 0;
  report->failures.clear();
  report->outOfMemory = false;
  report->problem = readHeader(in, count);
  if (report->problem) return kFailed;

  const ScopeGuard close([&] { std::fclose(file); });
  AfterRecord after = AfterRecord::ReadOn;
  for (int32_t place = 0; place < count; ++place) {
    if ((report->problem = reasonToStop(in, after))) break;
    try {
      readPattern(in, static_cast<uint32_t>(place), patterns, *report, after);
    } catch (...) {
      report->problem = "there is not enough memory for its patterns";
      report->outOfMemory = true;
      break;
    }
  }
  return 0;
}

int32_t loadPatternFile(const std::string& path, PsPatterns& patterns, PatternFileReport* report) noexcept {
  std::FILE* const file = openFile(path, "rb");
  if (!file) {
    if (report) report->problem = "it cannot be opened";
    return kFailed;
  }
  const int32_t result = ReadPatternFile(file, patterns, report);
  if (result != 0) std::fclose(file);
  return result;
}

}  // namespace quiltor
