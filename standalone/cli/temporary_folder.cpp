#include "standalone/cli/temporary_folder.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "standalone/cli/command_error.h"

namespace quiltor::standalone {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "quiltor-XXXXXX").string();
  if (!mkdtemp(name.data())) throw CommandFailure("no temporary folder can be made: " + name);
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quiltor::standalone
