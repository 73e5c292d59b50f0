#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

#include "platform/entry_name_windows.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "platform/scratch_folder.h"
#include "platform/wide_text_windows.h"

namespace quiltor {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::FieldsAre;

void writeFile(const std::wstring& path) {
  std::FILE* const file = _wfopen(path.c_str(), L"wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
}

TEST(WindowsFolder, NamesComeAsUtf8WhateverTheCodePage) {
  const ScratchFolder scratch;
  const std::wstring folder = systemPath(scratch.path());
  writeFile(folder + L"\\\u00EB.png");
  writeFile(folder + L"\\\u7F8E.png");
  writeFile(folder + L"\\\U0001F3A8.png");
  const auto contents = readFolder(scratch.path());
  ASSERT_TRUE(contents);
  EXPECT_THAT(contents->entries,
              ElementsAre(FieldsAre("\xC3\xAB.png", EntryType::File), FieldsAre("\xE7\xBE\x8E.png", EntryType::File),
                          FieldsAre("\xF0\x9F\x8E\xA8.png", EntryType::File)));
}

TEST(WindowsFolder, ANameThatIsNoTextComesByItsShortNameOrAsAQuestionMark) {
  const std::wstring half(1, wchar_t{0xD800});
  EXPECT_EQ(entryName(L"\u7F8E.png", L"SHORT~1.PNG"), "\xE7\xBE\x8E.png");
  EXPECT_EQ(entryName(half + L".png", L"SHORT~1.PNG"), "SHORT~1.PNG");
  EXPECT_EQ(entryName(half + L".png", L""), "?");
  EXPECT_EQ(entryName(half + L".png", half), "?");
}

TEST(WindowsFolder, APathOfTwoThousandCharactersIsNotCut) {
  const ScratchFolder scratch;
  std::string path = scratch.path();
  const std::string name(200, 'm');
  for (int level = 0; level < 10; ++level) {
    path += "/" + name;
    ASSERT_EQ(createFolder(path), FolderCreation::Created) << level;
  }
  std::FILE* const file = openFile(path + "/deep.png", "wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(folderExists(path));
  EXPECT_THAT(readFolder(path)->entries, ElementsAre(FieldsAre("deep.png", EntryType::File)));
  removeFile(path + "/deep.png");
  EXPECT_TRUE(readFolder(path)->entries.empty());
}

TEST(WindowsFolder, APathLongerThanTheSystemAllowsFailsInEveryCall) {
  const ScratchFolder scratch;
  std::string path = scratch.path();
  while (path.size() < 40000) path += "/" + std::string(200, 'm');
  EXPECT_EQ(openFile(path, "wb"), nullptr);
  EXPECT_NE(createFolder(path), FolderCreation::Created);
  EXPECT_FALSE(folderExists(path));
  EXPECT_FALSE(readFolder(path));
  EXPECT_FALSE(replaceFile(path, scratch.path("a")));
  EXPECT_TRUE(readFolder(scratch.path())->entries.empty());
}

TEST(WindowsFolder, APathThatIsNotUtf8NamesNothing) {
  const ScratchFolder scratch;
  EXPECT_EQ(openFile(scratch.path("\xFF.png"), "wb"), nullptr);
  EXPECT_FALSE(folderExists(scratch.path("\xFF")));
  EXPECT_FALSE(readFolder("\xFF"));
  EXPECT_TRUE(readFolder(scratch.path())->entries.empty());
}

TEST(WindowsFolder, IsKnownAgainInAnyCase) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path("folder"));
  EXPECT_EQ(readFolder(scratch.path("folder"))->identity, readFolder(scratch.path("FOLDER"))->identity);
}

}  // namespace
}  // namespace quiltor
