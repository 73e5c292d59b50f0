#include "standalone/cli/project_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "base/utf8_path.h"
#include "platform/file.h"
#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

std::string readBytes(const std::filesystem::path& path, const std::string& expected) {
  std::error_code error;
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path, error)) {
    throw CommandFailure(utf8FromPath(path) + ": cannot be read; expected " + expected);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::optional<std::vector<unsigned char>> readProject(const std::filesystem::path& path) {
  std::error_code error;
  if (path.empty() || !std::filesystem::exists(path, error)) return std::nullopt;
  const std::string bytes = readBytes(path, "what --project has written before");
  return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

void writeProject(const std::filesystem::path& path, const std::vector<unsigned char>& flat) {
  std::filesystem::path unfinished = path;
  unfinished += ".unfinished";
  {
    std::ofstream file(unfinished, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(flat.data()), static_cast<std::streamsize>(flat.size()));
    file.close();
    if (file && !replaceFile(unfinished, path)) return;
  }
  std::error_code ignored;
  std::filesystem::remove(unfinished, ignored);
  throw CommandFailure(utf8FromPath(path) + ": cannot be written");
}

std::string readSteps(const std::filesystem::path& path) {
  return readBytes(path, "steps, as standalone/scripting/automation/README.md describes them");
}

}  // namespace quiltor::standalone
