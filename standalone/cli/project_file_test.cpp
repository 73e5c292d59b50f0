#include "standalone/cli/project_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "base/utf8_path.h"
#include "platform/scratch_folder.h"
#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

using Bytes = std::vector<unsigned char>;

TEST(ProjectFileTest, isReplacedThoughSomebodyReadsItForAMoment) {
  const ScratchFolder scratch;
  const std::filesystem::path path = pathFromUtf8(scratch.path("project"));
  EXPECT_EQ(readProject(path), std::nullopt);
  writeProject(path, {1, 2, 3});
  std::ifstream reading(path, std::ios::binary);
  ASSERT_TRUE(reading);
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    reading.close();
  });
  EXPECT_NO_THROW(writeProject(path, {0, 10, 13, 26}));
  reader.join();
  EXPECT_EQ(readProject(path), (Bytes{0, 10, 13, 26}));
}

TEST(ProjectFileTest, leavesNothingWhereItCannotBeWritten) {
  const ScratchFolder scratch;
  const std::filesystem::path folder = pathFromUtf8(scratch.path());
  std::filesystem::create_directory(folder / "taken");
  EXPECT_THROW(writeProject(folder / "taken", {1}), CommandFailure);
  EXPECT_THROW(writeProject(folder / "missing" / "project", {1}), CommandFailure);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

}  // namespace
}  // namespace quiltor::standalone
