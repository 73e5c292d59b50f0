#include "standalone/cli/typed_path.h"

#include <CLI/CLI.hpp>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/near_miss.h"

namespace quiltor::standalone {

CLI::Option* addPath(CLI::App& command, const std::string& name, std::filesystem::path& path, const std::string& text) {
  return command.add_option_function<std::string>(
      name, [&path](const std::string& typed) { path = pathFromUtf8(typed); }, text);
}

void requirePngName(const std::string& option, const std::filesystem::path& path) {
  if (sameName(utf8FromPath(path.extension()), ".png")) return;
  throw UsageError(option + ": " + utf8FromPath(path) + ": expected a name that ends in .png");
}

std::string withoutSeparatorAtEnd(const std::filesystem::path& folder) {
  const bool hasMore = !folder.has_filename() && folder.has_relative_path();
  return utf8FromPath(hasMore ? folder.parent_path() : folder);
}

}  // namespace quiltor::standalone
