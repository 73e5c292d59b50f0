#include "host/pattern_selection.h"

namespace quiltor {
namespace {

constexpr std::string_view kSeparator = "*****";

// Takes the text up to the next separator, and the separator, off the front of rest.
std::string_view takeField(std::string_view& rest) {
  const size_t end = rest.find(kSeparator);
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + kSeparator.size());
  return field;
}

}  // namespace

std::string referenceFromSelection(std::string_view selection) {
  const std::string_view path = takeField(selection);
  if (path.empty()) return {};
  std::string reference(path);
  for (int field = 0; field < 2; ++field) {
    reference += '*';
    reference += takeField(selection);
  }
  return reference += '*';
}

}  // namespace quiltor
