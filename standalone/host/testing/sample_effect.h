#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "standalone/host/instance.h"
#include "standalone/host/services/shared_library.h"

namespace quiltor::standalone {

// The sample effect, honest until a misdeed is chosen.
inline const EffectModule& sampleModule() {
  static const EffectModule module(SAMPLE_EFFECT_PATH);
  return module;
}

inline void setMisdeed(const std::string& name) {
  std::string problem;
  void* library = loadLibrary(sampleModule().path(), problem);
  reinterpret_cast<void (*)(const char*)>(exportedAddress(library, "setMisdeed"))(name.c_str());
  unloadLibrary(library);
}

// Every pixel different from its neighbours.
inline World samplePicture(WorldFormat format, int width, int height) {
  World world(format, width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      world.set(x, y, {x / 16.0, y / 16.0, (x + y) % 3 / 2.0, x % 2 ? 1.0 : 0.5});
    }
  }
  return world;
}

}  // namespace quiltor::standalone
