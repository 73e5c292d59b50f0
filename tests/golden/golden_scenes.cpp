#include "tests/golden/golden_scenes.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <stdexcept>

#include "platform/scratch_folder.h"
#include "standalone/host/effect.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"
#include "tests/support/flat_sequence.h"
#include "tests/support/png_file.h"

namespace quiltor::golden {
namespace {

using standalone::Instance;
using standalone::World;
using standalone::WorldFormat;

constexpr int kWidth = 48, kHeight = 32;
constexpr int kPatternWidth = 13, kPatternHeight = 9;

// Parameters by their place in the panel.
constexpr int kTileMode = 5, kBlendMode = 6, kOpacity = 7, kScale = 8, kOffset = 9;

// Every colour meets every alpha somewhere: hue runs across, brightness down, and alpha along the diagonal from
// transparent to opaque.
World layer() {
  World world(WorldFormat::Argb8, kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double across = static_cast<double>(x) / (kWidth - 1), down = static_cast<double>(y) / (kHeight - 1);
      world.set(x, y, {across, (1 - across) * down, 1 - down, std::clamp(across + down, 0.0, 1.0)});
    }
  }
  return world;
}

// A disc of two colours on a half-transparent ground, off centre, so that a mirror image differs from a copy.
std::vector<uint8_t> patternPixels() {
  std::vector<uint8_t> pixels;
  for (int y = 0; y < kPatternHeight; ++y) {
    for (int x = 0; x < kPatternWidth; ++x) {
      const bool inside = (x - 4) * (x - 4) + (y - 4) * (y - 4) <= 12;
      const uint8_t shade = static_cast<uint8_t>(x * 19);
      if (inside) {
        pixels.insert(pixels.end(), {255, static_cast<uint8_t>(y * 28), shade, 255});
      } else {
        pixels.insert(pixels.end(), {shade, 128, static_cast<uint8_t>(255 - y * 28), 96});
      }
    }
  }
  return pixels;
}

std::string fileName(std::string item) {
  std::ranges::transform(item, item.begin(), [](unsigned char c) { return c == ' ' ? '-' : std::tolower(c); });
  return item;
}

}  // namespace

std::vector<GoldenScene> goldenScenes() {
  std::vector<GoldenScene> scenes;
  const auto addAll = [&](const char* kind, const std::vector<std::string>& items, int GoldenScene::*item) {
    for (size_t i = 0; i < items.size(); ++i) {
      GoldenScene scene;
      scene.name = kind + fileName(items[i]);
      scene.*item = static_cast<int>(i) + 1;
      scenes.push_back(scene);
    }
  };
  addAll("tile-", {"Single", "Tiled", "Mirrored"}, &GoldenScene::tileMode);
  addAll("blend-",
         {"Normal",       "Stencil Alpha", "Stencil Luma", "Silhouette Alpha", "Silhouette Luma", "Lighten",
          "Darken",       "Multiply",      "Average",      "Difference",       "Negation",        "Exclusion",
          "Screen",       "Overlay",       "Soft Light",   "Hard Light",       "Color Dodge",     "Color Burn",
          "Linear Dodge", "Linear Burn",   "Linear Light", "Vivid Light",      "Pin Light",       "Hard Mix",
          "Reflect",      "Glow",          "Phoenix"},
         &GoldenScene::blendMode);
  return scenes;
}

std::filesystem::path goldenPath(const GoldenScene& scene) {
  return std::filesystem::path(QUILTOR_GOLDEN_FOLDER) / (scene.name + ".png");
}

struct SceneRenderer::Parts {
  ScratchFolder folder;
  standalone::Host host;
  standalone::EffectModule module{QUILTOR_MODULE_PATH};
  standalone::Effect effect{host, module};
  standalone::CallResult setUp = effect.setUp();  // before an instance can know the parameters
  Instance instance{effect};
  World input = layer();
};

SceneRenderer::SceneRenderer() : parts_(std::make_unique<Parts>()) {
  const std::string pattern = parts_->folder.path("pattern.png");
  testing_support::writePng(pattern, kPatternWidth, kPatternHeight, 4, patternPixels());
  parts_->instance.resetupFrom(testing_support::flatSequence({{0, testing_support::selectionOf(pattern)}}));
}

SceneRenderer::~SceneRenderer() = default;

World SceneRenderer::render(const GoldenScene& scene) {
  Instance& instance = parts_->instance;
  instance.setChoice(kTileMode, scene.tileMode);
  instance.setChoice(kBlendMode, scene.blendMode);
  instance.setNumber(kOpacity, 80);
  instance.setNumber(kScale, 160);
  instance.setPointPercent(kOffset, 40, 60);
  standalone::RenderResult result = instance.renderSmart({.input = &parts_->input});
  if (result.code != PF_Err_NONE || !result.output) {
    throw std::runtime_error(scene.name + ": the effect returned " + std::to_string(result.code));
  }
  return std::move(*result.output);
}

}  // namespace quiltor::golden
