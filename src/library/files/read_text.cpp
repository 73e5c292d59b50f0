#include "library/files/read_text.h"

#include <cstdio>

#include "base/scope_guard.h"
#include "platform/file.h"

namespace quiltor {
namespace {

std::string readFile(const std::string& path) {
  std::string content;
  std::FILE* const file = openFile(path, "rb");
  if (!file) return content;
  const ScopeGuard close([&] { std::fclose(file); });
  char block[16384];
  for (size_t count; (count = std::fread(block, 1, sizeof block, file)) > 0;) content.append(block, count);
  return content;
}

void splitLines(const std::string& text, std::vector<std::string>& lines) {
  for (size_t begin = 0, end; begin < text.size(); begin = end + 1) {
    end = text.find('\n', begin);
    if (end == std::string::npos) end = text.size();
    if (end > begin) lines.push_back(text.substr(begin, end - begin));
  }
}

}  // namespace

std::string readWholeFile(const std::string& path) noexcept {
  try {
    return path.empty() ? std::string() : readFile(path);
  } catch (...) {
    return {};
  }
}

int readTextLines(const std::string& path, std::vector<std::string>& lines) noexcept {
  lines.clear();
  if (path.empty()) return -1;
  try {
    splitLines(readWholeFile(path), lines);
  } catch (...) {
    lines.clear();
  }
  return 0;
}

}  // namespace quiltor
