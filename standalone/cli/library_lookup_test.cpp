#include "standalone/cli/library_lookup.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;

class LibraryLookupTest : public testing::Test {
 protected:
  std::string found(const std::string& typed) const {
    try {
      return findLibrary(libraries_, typed).path;
    } catch (const UsageError& error) {
      return error.what();
    }
  }

  std::vector<Library> libraries_{{"Textures", "", "/t"},
                                  {"Textures", "wood | oak", "/t/wood/oak"},
                                  {"Quiltor", "PS Patterns | walls", "/q/walls"},
                                  {"More", "old | oak", "/m/oak"},
                                  {"More", "", "/1/More"},
                                  {"More", "", "/2/More"}};
};

TEST_F(LibraryLookupTest, findsALibraryByWhatItIsCalled) {
  EXPECT_EQ(found("[Textures]"), "/t");
  EXPECT_EQ(found("textures"), "/t");
  EXPECT_EQ(found("[Textures] wood | oak"), "/t/wood/oak");
  EXPECT_EQ(found("Wood | Oak"), "/t/wood/oak");
  EXPECT_EQ(found("walls"), "/q/walls");
}

TEST_F(LibraryLookupTest, doesNotChooseAmongSeveral) {
  EXPECT_EQ(found("oak"), "\"oak\" names several libraries, choose one by its path: /t/wood/oak, /m/oak");
  EXPECT_EQ(found("[More]"), "\"[More]\" names several libraries, choose one by its path: /1/More, /2/More");
  EXPECT_EQ(found("/2/More"), "/2/More");
}

TEST_F(LibraryLookupTest, takesALibraryThatIsListedTwice) {
  libraries_.push_back(libraries_[2]);
  EXPECT_EQ(found("walls"), "/q/walls");
}

TEST_F(LibraryLookupTest, suggestsTheNameThatWasNearlyTyped) {
  EXPECT_EQ(found("wals"), "\"wals\": no such library; did you mean \"walls\"?");
  EXPECT_EQ(found("clouds"), "\"clouds\": no such library; `quiltor library list` lists them");
}

}  // namespace
}  // namespace quiltor::standalone
