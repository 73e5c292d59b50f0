#include <gtest/gtest.h>

#include <algorithm>

#include "standalone/host/picture_file.h"
#include "tests/golden/golden_scenes.h"

namespace quiltor::golden {
namespace {

using standalone::readPicture;
using standalone::World;
using standalone::WorldFormat;

class GoldenPicture : public testing::TestWithParam<GoldenScene> {};

TEST_P(GoldenPicture, IsRenderedToTheByte) {
  const World expected = readPicture(goldenPath(GetParam()), WorldFormat::Argb8);
  const World rendered = SceneRenderer().render(GetParam());
  EXPECT_EQ(rendered.width(), expected.width());
  EXPECT_EQ(rendered.height(), expected.height());
  EXPECT_TRUE(rendered.packed() == expected.packed())
      << GetParam().name << " looks different now; ./run golden shows where";
}

std::string testName(const testing::TestParamInfo<GoldenScene>& scene) {
  std::string name = scene.param.name;
  std::ranges::replace(name, '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Scenes, GoldenPicture, testing::ValuesIn(goldenScenes()), testName);

TEST(GoldenPictures, OfAllScenesDiffer) {
  SceneRenderer renderer;
  std::vector<std::vector<unsigned char>> seen;
  for (const GoldenScene& scene : goldenScenes()) {
    // The plain blend mode is also the tiled scene.
    if (scene.name == "blend-normal") continue;
    seen.push_back(renderer.render(scene).packed());
    for (size_t other = 0; other + 1 < seen.size(); ++other) {
      EXPECT_FALSE(seen[other] == seen.back()) << scene.name << " looks like " << goldenScenes()[other].name;
    }
  }
}

}  // namespace
}  // namespace quiltor::golden
