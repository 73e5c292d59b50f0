#pragma once

#include <optional>
#include <string>
#include <vector>

#include "standalone/host/effect.h"
#include "standalone/host/host.h"
#include "standalone/host/instance.h"
#include "standalone/validate/check.h"

namespace quiltor::standalone {

// The module in a host of its own. At its end the effect is shut down, and what the host found and what is still held
// become problems of the run; instances must be gone by then.
class Stage {
 public:
  Stage(CheckRun& theRun, HostOptions options);
  explicit Stage(CheckRun& theRun) : Stage(theRun, theRun.hostOptions()) {}
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // False, with a problem, when the effect cannot be set up.
  bool setUp();

  CheckRun& run;
  Host host;
  Effect effect;
};

// A way to render that the effect declares.
struct FrameKind {
  bool smart = false;
  WorldFormat format = WorldFormat::Argb8;
  std::string name;  // "smart, 16 bits"
};

// In the video editor those whose pixels it has declared.
[[nodiscard]] std::vector<FrameKind> frameKinds(Stage& stage);

// Calls `use` with a stage that is set up and a kind of frame, for every kind that the effect declares in each of the
// two applications.
template <class Use>
void forEveryKind(CheckRun& run, Use use) {
  for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
    HostOptions options = run.hostOptions();
    options.appId = application;
    Stage stage(run, options);
    run.trial(application == kAppId_PremierePro ? "in the video editor" : "");
    if (!stage.setUp()) continue;
    for (const FrameKind& kind : frameKinds(stage)) use(stage, kind);
  }
}

// No two neighbours alike, transparent and opaque; float pixels also beyond 0 and 1.
[[nodiscard]] World testPicture(WorldFormat format, int width, int height);

// Renders one frame; its problems are the run's. Nothing when there is no picture.
[[nodiscard]] std::optional<World> renderFrame(Stage& stage, Instance& instance, const FrameKind& kind,
                                               const Frame& frame);

// Whether both are there, with the same size and pixels.
[[nodiscard]] bool alike(const std::optional<World>& a, const std::optional<World>& b);

}  // namespace quiltor::standalone
