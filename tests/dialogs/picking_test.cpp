#include <filesystem>

#include "tests/dialogs/dialogs_test.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"

namespace quiltor {
namespace {

using standalone::Instance;
using standalone::World;
using testing::ElementsAre;
using testing::HasSubstr;
using testing_support::DialogsTest;
using testing_support::textsOf;

// From the first click to the rendered picture.
class PickingTest : public DialogsTest {
 protected:
  PickingTest() { layer_.fill({.r = 0.5, .g = 0.5, .b = 0.5, .a = 1}); }

  std::vector<unsigned char> pictureOf(Instance& of) const {
    constexpr int kFile = 2;
    of.setChoice(Param::source, kFile);
    const standalone::RenderResult result = of.render({.input = &layer_});
    EXPECT_EQ(result.code, 0);
    return result.output ? result.output->packed() : std::vector<unsigned char>();
  }

  std::string textures(const std::string& name = "") const { return folder.path("Textures" + name); }

 private:
  World layer_{standalone::WorldFormat::Argb8, 16, 16};
};

TEST_F(PickingTest, GoesFromTheFirstClickToThePicture) {
  putImage(textures("/red.png"), {255, 0, 0});
  std::filesystem::copy_file(SAMPLES_FOLDER "/tiles.pat", textures("/marks.pat"));
  const std::vector<unsigned char> before = pictureOf(instance);

  click("dialog \"Quiltor Settings\"\nanswer \"" + textures() + "\"\nclick button\"Set\"\nclick \"OK\"\n");
  EXPECT_EQ(pictureOf(instance), before);
  const std::vector<std::string> converted = namesIn(shared("PS Patterns/marks"));
  ASSERT_GE(converted.size(), 2u) << "the conversion ran";

  const Opened picked = click(
      "dialog \"Select Texture\"\nexpect dropdownlist selected \"[Textures] \"\nclick \"Refresh\"\n"
      "choose dropdownlist \"[Quiltor] PS Patterns | marks\"\nexpect iconbutton#" +
      std::to_string(converted.size()) + " shown\nexpect iconbutton#" + std::to_string(converted.size() + 1) +
      " hidden\nclick iconbutton#2\n");
  EXPECT_NE(picked.outFlags & PF_OutFlag_FORCE_RERENDER, 0);
  const std::vector<unsigned char> after = pictureOf(instance);
  EXPECT_NE(after, before);

  Instance reopened(effect);
  EXPECT_EQ(reopened.resetupFrom(flatCopy()).code, 0);
  EXPECT_EQ(pictureOf(reopened), after);
  reopened.shutDown();

  click(
      "expect dropdownlist selected \"[Quiltor] PS Patterns | marks\"\nchoose dropdownlist \"[Textures] \"\n"
      "click iconbutton\n");
  EXPECT_NE(pictureOf(instance), after);
}

TEST_F(PickingTest, CancelKeepsTheFirstPick) {
  putImage(textures("/red.png"), {255, 0, 0});
  putList({"Textures**" + textures()});
  click("click iconbutton\n");
  const std::vector<unsigned char> picture = pictureOf(instance), data = flatCopy();
  for (const char* way : {"press Escape", "close", "click \"Refresh\"\nclose"}) {
    put(shared("config.txt"), "addFolder1: " + textures());
    click(std::string(way) + "\n");
    EXPECT_EQ(pictureOf(instance), picture) << way;
    EXPECT_EQ(flatCopy(), data) << way;
  }
}

TEST_F(PickingTest, RemembersNamesOfAllKinds) {
  const std::string name = "a \"b\" 'c' #v1 \xC3\xA4 \xF0\x9F\xA7\xB1 100%41";
  putImage(textures("/" + name + "/" + name + ".png"), {0, 0, 255});
  click("answer \"" + textures() + "\"\nclick button\"Set\"\nclick \"OK\"\n");
  const Opened opened = click("click iconbutton\n");
  const std::string image = textures("/" + name + "/" + name + ".png");
  EXPECT_EQ(opened.result, image + "*Textures*" + name + "*" + textures("/" + name) + "*");
  EXPECT_EQ(textsOf(flatCopy())[0], image + "*****Textures*****" + name);
}

}  // namespace
}  // namespace quiltor
