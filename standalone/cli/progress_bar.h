#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "standalone/cli/console.h"

namespace quiltor::standalone {

// A bar on the terminal's last line, until the end of the scope; nothing where nobody watches.
class ProgressBar {
 public:
  explicit ProgressBar(const Console& console) : console_(console) {}
  ~ProgressBar() { clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(std::size_t done, std::size_t total, std::string_view item);

  // A line on the error stream that stays, above the bar.
  void complain(const std::string& line);

 private:
  void clear();

  const Console& console_;
  std::string shown_;
};

}  // namespace quiltor::standalone
