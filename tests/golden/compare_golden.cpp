// Renders the golden scenes, says which differ from the kept pictures and draws the differences.
//
//   compare_golden FOLDER      writes FOLDER/NAME.png for each picture that differs: the kept one, the rendered one and
//                              the difference, made plain even where it is one step, side by side and enlarged
//   compare_golden --accept    keeps the rendered pictures from now on
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "standalone/host/picture_file.h"
#include "tests/golden/golden_scenes.h"

namespace quiltor::golden {
namespace {

using standalone::Rgba;
using standalone::World;
using standalone::WorldFormat;

constexpr int kEnlarged = 8;
constexpr double kLeast = 0.4, kStrength = 8;  // how bright a difference is shown

// What a viewer would see in front of a grey wall.
Rgba onGrey(const Rgba& p) {
  const double wall = 0.5 * (1 - p.a);
  return {p.r * p.a + wall, p.g * p.a + wall, p.b * p.a + wall, 1};
}

Rgba difference(const Rgba& p, const Rgba& q) {
  const double alpha = std::fabs(p.a - q.a);
  const auto channel = [&](double a, double b) {
    const double distance = std::max(std::fabs(a - b), alpha);
    return distance == 0 ? 0 : std::min(1.0, kLeast + kStrength * distance);
  };
  return {channel(p.r, q.r), channel(p.g, q.g), channel(p.b, q.b), 1};
}

// A place outside the picture is transparent.
Rgba at(const World& world, int x, int y) { return x < world.width() && y < world.height() ? world.at(x, y) : Rgba{}; }

World sideBySide(const World& kept, const World& rendered) {
  const int width = std::max(kept.width(), rendered.width()), height = std::max(kept.height(), rendered.height());
  World picture(WorldFormat::Argb8, 3 * width * kEnlarged, height * kEnlarged);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int panel = x / (width * kEnlarged), px = x / kEnlarged % width, py = y / kEnlarged;
      const Rgba a = at(kept, px, py), b = at(rendered, px, py);
      picture.set(x, y, panel == 0 ? onGrey(a) : panel == 1 ? onGrey(b) : difference(a, b));
    }
  }
  return picture;
}

int accept() {
  SceneRenderer renderer;
  for (const GoldenScene& scene : goldenScenes()) standalone::writePng(goldenPath(scene), renderer.render(scene));
  std::printf("kept %zu pictures\n", goldenScenes().size());
  return 0;
}

int compare(const std::filesystem::path& folder) {
  SceneRenderer renderer;
  int differing = 0;
  for (const GoldenScene& scene : goldenScenes()) {
    const World kept = standalone::readPicture(goldenPath(scene), WorldFormat::Argb8);
    const World rendered = renderer.render(scene);
    if (kept.packed() == rendered.packed()) continue;
    ++differing;
    std::filesystem::create_directories(folder);
    const std::filesystem::path path = folder / (scene.name + ".png");
    standalone::writePng(path, sideBySide(kept, rendered));
    std::printf("%s differs: %s\n", scene.name.c_str(), path.c_str());
  }
  std::printf("%d of %zu golden pictures differ\n", differing, goldenScenes().size());
  return differing == 0 ? 0 : 1;
}

}  // namespace
}  // namespace quiltor::golden

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: compare_golden FOLDER | --accept\n");
    return 2;
  }
  try {
    return std::strcmp(argv[1], "--accept") == 0 ? quiltor::golden::accept() : quiltor::golden::compare(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "compare_golden: %s\n", error.what());
    return 1;
  }
}
