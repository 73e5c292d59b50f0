#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standalone/host/picture_file.h"
#include "tests/cli/command_line_run.h"
#include "tests/support/png_file.h"

namespace quiltor::standalone {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

class PanelCommandTest : public CommandLineTest {};

testing::Matcher<std::string> showsTheLayer() {
  return AllOf(ContainsRegex("Pattern Layer +shown\n"), ContainsRegex("Pattern +hidden\n"),
               ContainsRegex("Opacity +shown\n"));
}

TEST_F(PanelCommandTest, showsWhatIsHiddenAtFirst) {
  const Outcome outcome = runModule({"panel"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, AllOf(ContainsRegex("Pattern Layer +hidden\n"), ContainsRegex("Pattern +shown\n")));
}

TEST_F(PanelCommandTest, followsAChangeInEitherApplication) {
  EXPECT_THAT(runModule({"panel", "--set", "source=Layer"}).out, showsTheLayer());
  EXPECT_THAT(runModule({"panel", "--set", "source=Layer", "--host", "premiere"}).out, showsTheLayer());
  EXPECT_THAT(runModule({"panel", "--set", "source=File", "--set", "source=Layer"}).out, showsTheLayer());
}

TEST_F(PanelCommandTest, drawsThePatternControl) {
  testing_support::writePng(folder.path("red.png"), 1, 1, 4, {255, 0, 0, 255});
  const std::string drawing = folder.path("control.png");
  const Outcome outcome = runModule({"panel", "--pattern", folder.path("red.png"), "--draw", drawing});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const World picture = readPicture(drawing, WorldFormat::Argb8);
  ASSERT_GT(picture.width(), 100);
  const Rgba inside = picture.at(100, 30);
  EXPECT_EQ(inside.r, 1);
  EXPECT_EQ(inside.g, 0);
  EXPECT_LT(picture.at(5, 5).r, 0.5);
}

TEST_F(PanelCommandTest, wantsAPng) {
  const Outcome outcome = runModule({"panel", "--draw", "control.jpg"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "quiltor: --draw: control.jpg: expected a name that ends in .png\n");
}

TEST_F(PanelCommandTest, namesAParameterThatIsNotThere) {
  const Outcome outcome = runModule({"panel", "--set", "sorce=Layer"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("sorce"));
}

}  // namespace
}  // namespace quiltor::standalone
