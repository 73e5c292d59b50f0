#include "host/pattern_selection.h"

namespace quiltor {
namespace {

constexpr std::string_view kSeparator = "*****";

// Takes the text up to the next separator, and the separator, off the front of rest.
std::string takeField(std::string_view& rest) {
  const size_t end = rest.find(kSeparator);
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + kSeparator.size());
  return std::string(field);
}

}  // namespace

PatternSelection parseSelection(std::string_view text) {
  PatternSelection selection;
  for (std::string* field : {&selection.path, &selection.libraryLabel, &selection.libraryName})
    *field = takeField(text);
  return selection;
}

std::string selectionText(const PatternSelection& selection) {
  std::string text = selection.path;
  for (const std::string* field : {&selection.libraryLabel, &selection.libraryName}) {
    text += kSeparator;
    text += *field;
  }
  return text;
}

std::string referenceFromSelection(std::string_view text) {
  const PatternSelection selection = parseSelection(text);
  if (selection.path.empty()) return {};
  return selection.path + '*' + selection.libraryLabel + '*' + selection.libraryName + '*';
}

}  // namespace quiltor
