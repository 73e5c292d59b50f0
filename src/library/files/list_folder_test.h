#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "library/files/folders.h"
#include "platform/folder.h"
#include "platform/scratch_folder.h"

namespace quiltor {

// For tests: a folder to list.
class ListFolderTest : public testing::Test {
 protected:
  void makeFile(const std::string& name) {
    std::filesystem::create_directories(std::filesystem::path(scratch_.path(name)).parent_path());
    std::ofstream(scratch_.path(name)) << "x";
  }

  // The listing without the scratch folder's path and the separator.
  std::vector<std::string> list(const FolderListOptions& options = {}) {
    std::vector<std::string> results;
    EXPECT_EQ(listFolder(results, scratch_.path(), options), 0);
    if (options.namesOnly) return results;
    for (std::string& path : results) {
      EXPECT_TRUE(path.starts_with(scratch_.path() + kPathSeparator)) << path;
      path.erase(0, scratch_.path().size() + 1);
      std::replace(path.begin(), path.end(), kPathSeparator, '/');
    }
    return results;
  }

  ScratchFolder scratch_;
};

}  // namespace quiltor
