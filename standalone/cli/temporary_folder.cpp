#include "standalone/cli/temporary_folder.h"

#include <random>
#include <string>
#include <system_error>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"

namespace quiltor::standalone {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  path_ =
      std::filesystem::temp_directory_path() / ("quiltor-" + std::to_string(random()) + "-" + std::to_string(random()));
  std::error_code error;
  // False also when somebody has such a folder already.
  if (!std::filesystem::create_directory(path_, error)) {
    throw CommandFailure("no temporary folder can be made: " + utf8FromPath(path_));
  }
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all, error);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quiltor::standalone
