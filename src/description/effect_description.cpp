#include "description/effect_description.h"

#include <utility>

#include "description/language/built_in_description.h"
#include "description/language/parse_description.h"

namespace quiltor {
namespace {

Description& processDescription() {
  static Description description = parseDescription("");
  return description;
}

}  // namespace

const Description& effectDescription() { return processDescription(); }

void parseBuiltInDescription() {
  Description description = parseDescription(builtInDescription());
  if (description.settings.bundleName.empty()) description.settings.bundleName = "Quiltor";
  processDescription() = std::move(description);
}

}  // namespace quiltor
