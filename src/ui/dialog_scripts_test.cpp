#include "ui/dialog_scripts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

namespace quiltor {
namespace {

std::string contentsOf(const std::string& name) {
  std::ifstream file(SCRIPTS_FOLDER "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(DialogScripts, AreTheFilesOneAfterTheOther) {
  EXPECT_EQ(galleryScript(), contentsOf("common.jsx") + contentsOf("gallery.jsx"));
  EXPECT_EQ(settingsScript(), contentsOf("common.jsx") + contentsOf("settings.jsx"));
}

TEST(DialogScripts, AreAscii) {
  for (const std::string_view script : {galleryScript(), settingsScript()}) {
    EXPECT_TRUE(std::ranges::all_of(script, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
  }
}

TEST(DialogScripts, EndInTheCallThatGivesTheResult) {
  EXPECT_TRUE(galleryScript().ends_with("\ngalleryDlg();\n"));
  EXPECT_TRUE(settingsScript().ends_with("\nconfigDlg();\n"));
}

}  // namespace
}  // namespace quiltor
