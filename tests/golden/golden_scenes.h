#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "standalone/host/instance.h"
#include "standalone/host/services/world.h"

namespace quiltor::golden {

// A small picture whose every byte is kept in the folder of golden pictures.
struct GoldenScene {
  std::string name;  // of the file, without its extension
  int tileMode = 2;  // items of the menus, from 1
  int blendMode = 1;
};

// One scene for each tile mode and one for each blend mode.
std::vector<GoldenScene> goldenScenes();

std::filesystem::path goldenPath(const GoldenScene& scene);

// Draws scenes with the built module.
class SceneRenderer {
 public:
  SceneRenderer();
  ~SceneRenderer();

  // 8 bits per channel. Throws std::runtime_error when the effect fails.
  standalone::World render(const GoldenScene& scene);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace quiltor::golden
