#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "standalone/host/effect.h"
#include "standalone/host/effect_module.h"
#include "standalone/host/host.h"
#include "standalone/host/instance.h"

namespace quiltor::bench {

// The parameter's place among those that the effect registers.
inline constexpr int kBlendMode = 6;

// What a measured frame asks of the effect.
struct FrameJob {
  int tileMode = 2;   // menu items, from 1
  int blendMode = 1;  // menu items, from 1
  double opacity = 100;
  double scale = 100;  // percent
  double rotation = 0;
  double blur = 0;
};

// The jobs that are compared with other programs: J1 a tiled pattern in Normal, J2 turned and scaled in Multiply, J3
// the same mirrored in Soft Light, J4a and J4b as J2 with a blur of 10 and of 100. Nothing for another name.
std::optional<FrameJob> frameJob(const std::string& name);

// "u8", "u16" or "f32".
std::optional<standalone::WorldFormat> worldFormat(const std::string& name);

// Loads the built module into a host that trusts it, as hosts do, and has it draw frames out of memory into memory. One
// lives at a time.
class FrameRunner {
 public:
  // Throws std::runtime_error when the module cannot be set up.
  explicit FrameRunner(const std::string& modulePath);

  // The worlds must outlive the frames; the pattern has the input's format. threads are the host's for its iterations.
  void setUp(const FrameJob& job, const standalone::World& input, const standalone::World& pattern, int threads);
  // The same with a pattern out of a picture file, from what savedWith gave.
  void setUpSaved(const FrameJob& job, const standalone::World& input, const std::vector<unsigned char>& saved,
                  int threads);
  // An instance whose pattern is this picture file, as a project holds it.
  std::vector<unsigned char> savedWith(const std::filesystem::path& pattern);
  // What the effect's calls for a frame took.
  struct Milliseconds {
    double elapsed = 0;
    double processor = 0;  // of all cores together
  };
  // Draws a frame. Throws std::runtime_error on an error.
  Milliseconds frame();
  // The last frame.
  const standalone::World& picture() const { return *picture_; }
  standalone::Effect& effect() { return effect_; }

 private:
  void apply(const FrameJob& job, const standalone::World& input, int threads);

  standalone::Host host_;
  standalone::EffectModule module_;
  standalone::Effect effect_;
  std::optional<standalone::Instance> instance_;
  const standalone::World* input_ = nullptr;
  std::optional<standalone::World> picture_;
};

}  // namespace quiltor::bench
