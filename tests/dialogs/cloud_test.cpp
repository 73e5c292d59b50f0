#include <chrono>

#include "tests/dialogs/dialogs_test.h"

namespace quiltor {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing_support::DialogsTest;

// A cloud library from a manifest that is made up.
class CloudTest : public DialogsTest {
 protected:
  std::string cloud(const std::string& name = "") const {
    return folder.path("user/Adobe/Creative Cloud Libraries/LIBS/1_AdobeID/creative_cloud/dcx/2" + name);
  }
  std::string component(const std::string& name) const { return cloud("/components/" + name); }
  std::string line(const std::string& name) const { return "CLOUD*" + name + "*" + cloud("/manifest") + "\r\n"; }

  static std::string element(const std::string& kind, const std::string& path) {
    return R"({"name":"E","type":"application/vnd.adobe.element.)" + kind + R"(+dcx","components":[
      {"path":"r.png","rel":"rendition"},{"path":")" +
           path + R"(","rel":"primary","state":"unmodified"}]})";
  }
  static std::string manifest(const std::string& name, const std::string& elements) {
    return R"({"manifest-format-version":6,"name":")" + name +
           R"(","type":"application\/vnd.adobe.library+dcx","children":[{"name":"elements","children":[)" + elements +
           "]}]}";
  }

  // The settings' OK writes the list.
  std::string listAfterOk() {
    openSettings("click \"OK\"\nexpect no alert\n");
    return contentsOf(shared("libpaths.txt"));
  }
};

TEST_F(CloudTest, LibrariesAreListedAndPickedFrom) {
  put(cloud("/manifest"), manifest("My \\\"W*lls\\\" {2} \\u00e4",
                                   element("pattern", "b.png") + "," + element("image", "c.png") + "," +
                                       element("pattern", "a.JPG.png") + "," + element("pattern", "missing.png")));
  for (const char* name : {"a.JPG.png", "b.png", "c.png", "r.png"}) putImage(component(name));
  const std::string shown = "My \"W lls\" {2} \xC3\xA4";
  EXPECT_EQ(listAfterOk(), line(shown));
  const Opened opened = click(
      "expect \"Import file\" disabled\nclick \"Show folder in OS\"\n"
      "expect iconbutton#1 image \"" +
      thumbnailOf(component("b.png")) +
      "\"\n"
      "expect iconbutton#2 image \"" +
      thumbnailOf(component("a.JPG.png")) +
      "\"\n"
      "expect iconbutton#3 hidden\nclick iconbutton#2\n");
  EXPECT_EQ(opened.result, component("a.JPG.png") + "*CLOUD*" + shown + "*" + cloud("/manifest") + "*");
  EXPECT_THAT(opened.printed, HasSubstr("open: " + cloud("/components") + "\n"));
  EXPECT_THAT(click("tree\nclose\n").printed, HasSubstr("selected=\"[CLOUD] My \\\"W lls\\\" {2} \xC3\xA4\""));
}

TEST_F(CloudTest, LibrariesAreLeftOutWhenTheBoxIsOff) {
  put(cloud("/manifest"), manifest("Walls", element("pattern", "a.png")));
  openSettings("check \"Show patterns from Adobe Cloud Libraries\" off\nclick \"OK\"\n");
  EXPECT_EQ(contentsOf(shared("libpaths.txt")), "");
  EXPECT_EQ(listAfterOk(), "") << "the box stays off";
}

TEST_F(CloudTest, ManifestsOfOtherKindsAreLeftOut) {
  for (const char* text : {"", "nothing", "{}", R"({"name":"Walls","type":"library+dcx"})",
                           R"({"name":"Brick","type":"pattern+dcx"})", "library+dcx pattern+dcx \"name\":\"x\"",
                           R"( library+dcx pattern+dcx "name": 7)", R"( library+dcx pattern+dcx "name":"x)"}) {
    put(cloud("/manifest"), text);
    EXPECT_EQ(listAfterOk(), "") << text;
  }
}

TEST_F(CloudTest, DamagedManifestsShowNothing) {
  putImage(component("a.png"));
  const std::string good = manifest("Walls", element("pattern", "a.png"));
  for (const std::string& text : std::vector<std::string>{
           good.substr(0, good.size() - 1), good + "]", " library+dcx pattern+dcx \"name\":\"Walls\"",
           manifest("Walls", R"(7,null,"pattern+dcx",[[]],{"type":7},{"type":"pattern+dcx","components":7},
                          {"type":"pattern+dcx","components":[7,null,{"rel":"primary"},{"rel":"primary","path":7}]})"),
           manifest("Walls", element("pattern", "../components/a.png") + "," + element("pattern", component("a.png")) +
                                 "," + element("pattern", "") + "," + element("pattern", "C:a.png"))}) {
    put(cloud("/manifest"), text);
    EXPECT_EQ(listAfterOk(), line("Walls")) << text;
    click("expect dropdownlist items 1\nexpect iconbutton hidden\nclose\nexpect no alert\n");
  }
}

TEST_F(CloudTest, DeepManifestsAreRead) {
  putImage(component("a.png"));
  for (const size_t depth : {size_t{50}, size_t{20000}}) {
    std::string nested = element("pattern", "a.png");
    std::string opening, closing;
    for (size_t i = 0; i < depth; ++i) {
      opening += R"({"children":[)";
      closing += "]}";
    }
    put(cloud("/manifest"), manifest("Walls", opening + nested + closing));
    EXPECT_EQ(listAfterOk(), line("Walls"));
    click("expect iconbutton image \"" + thumbnailOf(component("a.png")) + "\"\nexpect iconbutton#2 hidden\nclose\n");
  }
}

TEST_F(CloudTest, LargeManifestsAreReadSoon) {
  putImage(component("a.png"));
  std::string others;
  while (others.size() < 5'000'000) others += element("color", "x \\u00e4 \\\\ y.png") + ",\n  ";
  put(cloud("/manifest"), manifest("Walls", others + element("pattern", "a.png")));
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(listAfterOk(), line("Walls"));
  click("expect iconbutton#1 shown\nexpect iconbutton#2 hidden\nclose\n");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(3))
      << "a reader that goes over its text again and again takes hours";
}

}  // namespace
}  // namespace quiltor
