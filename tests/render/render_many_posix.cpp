// Renders frames of one instance, one after the other, and tells in a shared file when it is inside a render.
//   render_many COMMON_FILE FRAMES   renders so many frames
//   render_many COMMON_FILE hang     stops for ever inside its first one
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "standalone/host/instance.h"
#include "tests/render/common_turns_posix.h"

namespace quiltor::render_tests {
namespace {

using namespace standalone;

constexpr int kRows = 4;
// A frame asks whether to abort once before its turn; then twice, and once for each row of the input, the stand-in for
// the pattern layer and the output.
constexpr int kFirstAskedInside = 1, kLastAskedInside = 2 + 3 * kRows;

int renderMany(const char* file, const char* howMany) {
  CommonTurns turns(file);
  const bool hangs = std::strcmp(howMany, "hang") == 0;
  Host host({.iterateThreads = 1, .onAbort = [&](int asked) -> PF_Err {
               if (asked == kFirstAskedInside) {
                 turns->enter();
                 while (hangs) std::this_thread::sleep_for(std::chrono::hours(1));
               }
               if (asked == kLastAskedInside) turns->leave();
               return PF_Err_NONE;
             }});
  const EffectModule module(QUILTOR_MODULE_PATH);
  Effect effect(host, module);
  if (!effect.setUp().succeeded()) return 2;
  Instance instance(effect);
  ++turns->arrivals;  // the setup of an instance waits for renders too
  if (!instance.setUp().succeeded()) return 2;
  World input(WorldFormat::Argb8, 3, kRows);
  const int frames = hangs ? 1 : std::atoi(howMany);
  for (int frame = 0; frame < frames; ++frame) {
    if (instance.render({.input = &input}).code != PF_Err_NONE) return 3;
  }
  return 0;
}

}  // namespace
}  // namespace quiltor::render_tests

int main(int argc, char** argv) { return argc == 3 ? quiltor::render_tests::renderMany(argv[1], argv[2]) : 64; }
