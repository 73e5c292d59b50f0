#include "description/language/include_directive.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <stdexcept>

#include "description/language/parse_description.h"
#include "platform/scratch_folder.h"

namespace quiltor {
namespace {

// Files that exist only in the test.
IncludeReader filesWith(const std::map<std::string, std::string>& contents) {
  return [contents](const std::string& path) {
    const auto file = contents.find(path);
    if (file == contents.end()) throw std::runtime_error("no file '" + path + "'");
    return file->second;
  };
}

TEST(IncludeDirective, IsReplacedByTheContentsOfTheFileBelowItsOwnLineAsAComment) {
  const IncludeReader files = filesWith({{"a b.txt", "one\ntwo\n"}});
  EXPECT_EQ(expandIncludes("before\n#include \t a b.txt\t \r\nafter", files),
            "before\n//#include \t a b.txt\t \none\ntwo\r\nafter");
}

TEST(IncludeDirective, InsideAnIncludedFileIsExpandedToo) {
  const IncludeReader files = filesWith({{"outer", "[par]\n#include inner\ntype=int\n"}, {"inner", "max=5"}});
  const Description description = parseDescription("[par]\ntype=layer\n#include outer\nmin=2\n", files);
  EXPECT_EQ(description.paramCount, 2);
  EXPECT_EQ(description.params[1].kind, ParamKind::Int);
  EXPECT_EQ(description.params[1].maximum, 5);
  EXPECT_EQ(description.params[1].minimum, 2);
}

TEST(IncludeDirective, TwoOnOneLevelReadBothFiles) {
  const IncludeReader files = filesWith({{"a", "A"}, {"b", "B"}});
  EXPECT_EQ(expandIncludes("#include a\n#include b", files), "//#include a\nA\n//#include b\nB");
}

TEST(IncludeDirective, ThatNamesAnUnreadableFileLeavesTheEmptyRecord) {
  const Description description = parseDescription("[par]\n[par]\ntype=int\n#include missing\n", filesWith({}));
  EXPECT_EQ(description.paramCount, 1);
  EXPECT_EQ(description.params[0].paramName, "in0");
}

TEST(IncludeDirective, FilesThatIncludeOneAnotherEndInAnExceptionAndNotInALoop) {
  const IncludeReader files = filesWith({{"a", "#include b\n#include b\n"}, {"b", "#include a\n#include a\n"}});
  EXPECT_THROW(expandIncludes("#include a", files), std::runtime_error);
  EXPECT_EQ(parseDescription("[par]\n[par]\ntype=int\n#include a", files).paramCount, 1);
}

TEST(IncludeDirective, ThatWouldMakeTheTextHugeEndsInAnException) {
  const IncludeReader files = filesWith({{"a", std::string(size_t{3} << 20, 'x')}});
  EXPECT_THROW(expandIncludes("#include a\n#include a\n", files), std::runtime_error);
}

TEST(IncludeDirective, ReadsFromTheDisk) {
  const ScratchFolder folder;
  const std::string path = folder.path("settings.txt");
  std::FILE* file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  std::fputs("[settings]\nname=From a file\n", file);
  std::fclose(file);
  EXPECT_EQ(parseDescription("#include " + path).settings.name, "From a file");
}

TEST(IncludeDirective, OfAFolderOrOfNothingCannotBeRead) {
  const ScratchFolder folder;
  EXPECT_THROW(readIncludedFile(folder.path()), std::runtime_error);
  EXPECT_THROW(readIncludedFile(""), std::runtime_error);
}

}  // namespace
}  // namespace quiltor
