#include "standalone/cli/progress_bar.h"

#include <algorithm>
#include <cstdint>

#include "standalone/cli/line_text.h"

namespace quiltor::standalone {
namespace {

constexpr std::size_t kBarWidth = 30;
// Of a terminal of 80 columns, which must not break the line.
constexpr std::size_t kItemWidth = 30;
constexpr const char* kStartOfEmptyLine = "\r\x1b[K";

}  // namespace

void ProgressBar::show(std::size_t done, std::size_t total, std::string_view item) {
  if (!console_.terminal || total == 0) return;
  const std::size_t filled = kBarWidth * std::min(done, total) / total;
  std::string line = "[";
  line.append(filled, '#').append(kBarWidth - filled, '.').append("] ");
  line.append(std::to_string(done)).append("/").append(std::to_string(total)).append(" ");
  line.append(shortened(item, kItemWidth));
  if (line == shown_) return;
  console_.err << kStartOfEmptyLine << line << std::flush;
  shown_ = line;
}

void ProgressBar::complain(const std::string& line) {
  const std::string bar = shown_;
  clear();
  console_.err << line << '\n';
  if (bar.empty()) return;
  console_.err << bar << std::flush;
  shown_ = bar;
}

void ProgressBar::clear() {
  if (shown_.empty()) return;
  console_.err << kStartOfEmptyLine << std::flush;
  shown_.clear();
}

}  // namespace quiltor::standalone
