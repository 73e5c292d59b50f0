#include "standalone/validate/stage.h"

#include <algorithm>
#include <utility>

namespace quiltor::standalone {

Stage::Stage(CheckRun& theRun, HostOptions options)
    : run(theRun), host(std::move(options)), effect(host, theRun.module()) {}

Stage::~Stage() {
  host.faults().failNever();
  run.requireSuccess(effect.shutDown(), "shutting down");
  run.takeFindings(host.findings());
}

bool Stage::setUp() { return run.requireSuccess(effect.setUp(), "setting up"); }

std::vector<FrameKind> frameKinds(Stage& stage) {
  const Effect& effect = stage.effect;
  const std::vector<PrPixelFormat>& formats = stage.host.declaredPixelFormats();
  std::vector<FrameKind> kinds;
  if (stage.host.options().appId == kAppId_PremierePro) {
    for (const WorldFormat format : {WorldFormat::Bgra8, WorldFormat::BgraFloat}) {
      const bool declared = std::find(formats.begin(), formats.end(), videoEditorFormatCode(format)) != formats.end();
      if (declared)
        kinds.push_back({false, format, format == WorldFormat::Bgra8 ? "blue first, 8 bits" : "blue first, float"});
    }
    return kinds;
  }
  const bool deep = (effect.outFlags() & PF_OutFlag_DEEP_COLOR_AWARE) != 0;
  kinds.push_back({false, WorldFormat::Argb8, "classic, 8 bits"});
  if (deep) kinds.push_back({false, WorldFormat::Argb16, "classic, 16 bits"});
  if ((effect.outFlags2() & PF_OutFlag2_SUPPORTS_SMART_RENDER) == 0) return kinds;
  kinds.push_back({true, WorldFormat::Argb8, "smart, 8 bits"});
  if (deep) kinds.push_back({true, WorldFormat::Argb16, "smart, 16 bits"});
  // The hosts render in float by the smart selectors alone.
  if (effect.outFlags2() & PF_OutFlag2_FLOAT_COLOR_AWARE)
    kinds.push_back({true, WorldFormat::ArgbFloat, "smart, float"});
  return kinds;
}

World testPicture(WorldFormat format, int width, int height) {
  const bool isFloat = format == WorldFormat::ArgbFloat || format == WorldFormat::BgraFloat;
  World picture(format, width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int mixed = x * 7 + y * 13;
      const double beyond = isFloat && mixed % 11 == 0 ? 1.5 : 0;
      picture.set(x, y, {mixed % 17 / 16.0 + beyond, mixed % 23 / 22.0, (x ^ y) % 5 / 4.0 - beyond, mixed % 4 / 3.0});
    }
  }
  return picture;
}

std::optional<World> renderFrame(Stage& stage, Instance& instance, const FrameKind& kind, const Frame& frame) {
  RenderResult result = kind.smart ? instance.renderSmart(frame) : instance.render(frame);
  stage.run.require(result.code == PF_Err_NONE, "the frame was answered with " + std::to_string(result.code) +
                                                    (result.message.empty() ? "" : ", \"" + result.message + "\""));
  stage.run.takeFindings(stage.host.findings());
  return std::move(result.output);
}

bool alike(const std::optional<World>& a, const std::optional<World>& b) {
  return a && b && a->width() == b->width() && a->height() == b->height() && a->packed() == b->packed();
}

}  // namespace quiltor::standalone
