#include "description/language/include_directive.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

#include "description/language/text_pieces.h"
#include "platform/file.h"

namespace quiltor {
namespace {

constexpr std::string_view kDirective = "#include";
constexpr int kDeepestNesting = 16;
constexpr size_t kMostBytes = size_t{4} << 20;

void append(std::string& out, std::string_view text) {
  if (text.size() > kMostBytes - out.size())
    throw std::runtime_error("a description with its included files is too long");
  out += text;
}

void appendExpanded(std::string& out, std::string_view text, const IncludeReader& read, int depth) {
  for (size_t at = text.find(kDirective); at != std::string_view::npos; at = text.find(kDirective)) {
    if (depth == kDeepestNesting) throw std::runtime_error("description files include one another");
    const size_t lineStart = text.find_last_of('\n', at) + 1;  // npos + 1 is 0: the first line
    const size_t lineEnd = text.find_first_of("\r\n", at);
    const std::string_view line = text.substr(lineStart, lineEnd - lineStart);
    const std::string_view name = trimmed(text.substr(at, lineEnd - at).substr(kDirective.size()));

    append(out, text.substr(0, lineStart));
    append(out, "//");
    append(out, line);
    append(out, "\n");
    std::string contents = read(std::string(name));
    if (contents.ends_with('\n')) contents.pop_back();  // the directive's own line end follows
    appendExpanded(out, contents, read, depth + 1);
    text = lineEnd == std::string_view::npos ? std::string_view{} : text.substr(lineEnd);
  }
  append(out, text);
}

}  // namespace

std::string readIncludedFile(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(openFile(path, "rb"), std::fclose);
  if (!file) throw std::runtime_error("cannot open the included file '" + path + "'");
  std::string contents;
  char block[4096];
  for (size_t got = 0; (got = std::fread(block, 1, sizeof block, file.get())) > 0;) {
    append(contents, {block, got});
  }
  if (std::ferror(file.get())) throw std::runtime_error("cannot read the included file '" + path + "'");
  return contents;
}

std::string expandIncludes(std::string_view text, const IncludeReader& read) {
  std::string out;
  appendExpanded(out, text, read, 0);
  return out;
}

}  // namespace quiltor
