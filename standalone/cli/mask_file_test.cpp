#include "standalone/cli/mask_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "platform/scratch_folder.h"
#include "standalone/cli/command_error.h"

namespace quiltor::standalone {
namespace {

struct MaskFile : testing::Test {
  ScratchFolder folder;
  const std::string file = folder.path("masks.json");

  std::vector<Mask> read(const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
    return readMasks(file);
  }
  // The error without the file's name in front of it.
  std::string rejection(const std::string& text) {
    try {
      static_cast<void>(read(text));
    } catch (const CommandFailure& failure) {
      const std::string line = failure.what();
      EXPECT_EQ(line.find(file + ": "), 0u) << line;
      EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 0) << line;
      return line.substr(std::min(line.size(), file.size() + 2));
    }
    return "";
  }
  // The same for a file whose second mask is wrong.
  std::string rejectedMask(const std::string& text) {
    return rejection(R"({"masks": [{"id": 1, "vertices": [{"at": [0, 0]}, {"at": [9, 0]}]}, )" + text + "]}");
  }
};

TEST_F(MaskFile, HoldsMasksWithAllTheirMembers) {
  const auto masks = read(R"({"masks": [
    {"id": 2, "feather": [10, 4.5], "inverted": true,
     "vertices": [{"at": [40, 20], "in": [-15, 1], "out": [15, -1]}, {"at": [80.25, -90]}]},
    {"vertices": [{"at": [0, 0]}, {"at": [9, 0]}, {"at": [0, 9]}], "id": 1, "feather": 3}]})");
  ASSERT_EQ(masks.size(), 2u);
  EXPECT_EQ(masks[0].id, 2);
  EXPECT_EQ(masks[0].featherX, 10);
  EXPECT_EQ(masks[0].featherY, 4.5);
  EXPECT_TRUE(masks[0].inverted);
  ASSERT_EQ(masks[0].vertices.size(), 2u);
  const PathVertex& curved = masks[0].vertices[0];
  EXPECT_EQ(curved.x, 40);
  EXPECT_EQ(curved.y, 20);
  EXPECT_EQ(curved.inX, -15);
  EXPECT_EQ(curved.inY, 1);
  EXPECT_EQ(curved.outX, 15);
  EXPECT_EQ(curved.outY, -1);
  EXPECT_EQ(masks[0].vertices[1].x, 80.25);
  EXPECT_EQ(masks[1].featherX, 3);
  EXPECT_EQ(masks[1].featherY, 3);
}

TEST_F(MaskFile, MayLeaveOutFeatherInversionAndTangents) {
  const Mask mask = read(R"({"masks": [{"id": 1, "vertices": [{"at": [5, 6]}, {"at": [9, 0]}]}]})")[0];
  EXPECT_EQ(mask.featherX, 0);
  EXPECT_EQ(mask.featherY, 0);
  EXPECT_FALSE(mask.inverted);
  EXPECT_EQ(mask.vertices[0].inX, 0);
  EXPECT_EQ(mask.vertices[0].outY, 0);
}

TEST_F(MaskFile, ThatCannotBeReadIsNamed) {
  const auto failureOf = [](const std::string& path) {
    try {
      static_cast<void>(readMasks(path));
    } catch (const CommandFailure& failure) {
      return std::string(failure.what());
    }
    return std::string();
  };
  EXPECT_EQ(failureOf(file), "cannot read " + file + ": no such file or no permission");
  EXPECT_EQ(failureOf(folder.path("")), "cannot read " + folder.path("") +
                                            ": it is no file, expected masks such as {\"masks\": "
                                            "[{\"id\": 1, \"vertices\": [...]}]}");
}

TEST_F(MaskFile, ThatIsNoJsonIsRefusedWithThePlace) {
  EXPECT_EQ(rejection("{\"masks\": [\n  {\"id\" 2}\n]}"),
            "is no JSON (line 2, column 9: syntax error while parsing object separator - unexpected number literal; "
            "expected ':'), expected masks such as {\"masks\": [{\"id\": 1, \"vertices\": [...]}]}");
  EXPECT_EQ(rejection("\x89PNG").find("is no JSON (line 1, column 1: syntax error while parsing value - invalid "
                                      "literal), expected masks"),
            0u);
  for (const char* text : {"", "{\"masks\": [1e999]}", "\xff\xfe", "{} {}", "{\"a\": \"\n\"}", "// masks\n{}"}) {
    EXPECT_EQ(rejection(text).find("is no JSON ("), 0u) << text << ": " << rejection(text);
  }
}

TEST_F(MaskFile, ThatNestsWithoutEndIsRefused) {
  EXPECT_EQ(rejection(std::string(1000000, '[')).find("[0][0]"), 0u);
  EXPECT_NE(rejection(std::string(1000000, '[')).find("is nested too deep"), std::string::npos);
}

TEST_F(MaskFile, ThatGivesAMemberTwiceIsRefused) {
  EXPECT_EQ(rejectedMask(R"({"id": 2, "feather": 1, "feather": 2})"),
            "masks[1].feather: is there twice, expected it once");
}

TEST_F(MaskFile, ThatHoldsSomethingElseIsRefused) {
  const std::string expected = "expected masks such as {\"masks\": [{\"id\": 1, \"vertices\": [...]}]}";
  EXPECT_EQ(rejection("[1, 2]"), "is a list of 2, " + expected);
  EXPECT_EQ(rejection("null"), "is null, " + expected);
  EXPECT_EQ(rejection("{}"), "masks: is missing, expected a list of masks");
  EXPECT_EQ(rejection(R"({"masks": []})"), "masks: is a list of 0, expected a list of one mask at least");
  EXPECT_EQ(rejection(R"({"masks": 3})"), "masks: is 3, expected a list of one mask at least");
  EXPECT_EQ(rejection(R"({"mask": []})"),
            "has the unknown member \"mask\", expected \"masks\"; did you mean \"masks\"?");
}

TEST_F(MaskFile, NamesTheMaskAndTheMemberThatIsWrong) {
  const std::string vertices = R"(, "vertices": [{"at": [0, 0]}, {"at": [9, 0]}])";
  EXPECT_EQ(rejectedMask("7"), "masks[1]: is 7, expected a mask such as {\"id\": 1, \"vertices\": [...]}");
  EXPECT_EQ(rejectedMask(R"({"id": 2})"), "masks[1].vertices: is missing, expected the path's vertices");
  EXPECT_EQ(rejectedMask("{\"fether\": 2}"),
            "masks[1]: has the unknown member \"fether\", expected one of \"id\", \"vertices\", \"feather\", "
            "\"inverted\"; did you mean \"feather\"?");
  EXPECT_EQ(rejectedMask("{\"x\\ny\": 2}").find("masks[1]: has the unknown member \"x y\", expected one of"), 0u);
  EXPECT_EQ(rejectedMask(R"({"id": 2, "feather": -1)" + vertices + "}"),
            "masks[1].feather: is -1, expected a number from 0 to 4000");
  EXPECT_EQ(rejectedMask(R"({"id": 2, "feather": [1, "2"])" + vertices + "}"),
            "masks[1].feather[1]: is \"2\", expected a number from 0 to 4000");
  EXPECT_EQ(rejectedMask(R"({"id": 2, "feather": [1])" + vertices + "}"),
            "masks[1].feather: is a list of 1, expected two numbers from 0 to 4000 such as [40, 20]");
  EXPECT_EQ(rejectedMask(R"({"id": 2, "feather": null)" + vertices + "}"),
            "masks[1].feather: is null, expected a number from 0 to 4000, or two such as [10, 4]");
  EXPECT_EQ(rejectedMask(R"({"id": 2, "inverted": 1)" + vertices + "}"),
            "masks[1].inverted: is 1, expected true or false");
}

TEST_F(MaskFile, TakesWholeIdentifiersOnceEach) {
  const std::string vertices = R"(, "vertices": [{"at": [0, 0]}, {"at": [9, 0]}]})";
  EXPECT_EQ(rejectedMask(R"({"id": 2147483647)" + vertices), "");
  for (const char* id : {"0", "-1", "2147483648", "2.0", "\"2\"", "1e30", "18446744073709551617", "true"}) {
    EXPECT_EQ(rejectedMask("{\"id\": " + std::string(id) + vertices).find("masks[1].id: is "), 0u) << id;
  }
  EXPECT_EQ(rejectedMask(R"({"id": 1)" + vertices), "masks[1].id: is 1, expected an identifier that no other mask has");
}

TEST_F(MaskFile, NamesTheVertexThatIsWrong) {
  const auto withVertex = [this](const std::string& vertex) {
    return rejectedMask(R"({"id": 2, "vertices": [{"at": [0, 0]}, )" + vertex + "]}");
  };
  EXPECT_EQ(withVertex(R"({"at": [32767, -32767], "in": [1, 2]})"), "");
  EXPECT_EQ(withVertex("{}"), "masks[1].vertices[1].at: is missing, expected two numbers such as [40, 20]");
  EXPECT_EQ(withVertex("[1, 2]"), "masks[1].vertices[1]: is a list of 2, expected a vertex such as {\"at\": [40, 20]}");
  EXPECT_EQ(withVertex(R"({"at": [1, 2], "in": {}})"),
            "masks[1].vertices[1].in: is an object, expected two numbers from -32767 to 32767 such as [40, 20]");
  EXPECT_EQ(withVertex(R"({"at": [1, 32768]})"),
            "masks[1].vertices[1].at[1]: is 32768, expected a number from -32767 to 32767");
  EXPECT_EQ(rejectedMask(R"({"id": 2, "vertices": [{"at": [0, 0]}]})"),
            "masks[1].vertices: is a list of 1, expected a list of 2 to 100000 vertices");
}

}  // namespace
}  // namespace quiltor::standalone
