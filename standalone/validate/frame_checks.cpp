// Frames of every declared depth, in every size and row layout.
#include <string>
#include <vector>

#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

// The same with an instance of the effect.
template <class Use>
void withInstanceForEveryKind(CheckRun& run, Use use) {
  forEveryKind(run, [&](Stage& stage, const FrameKind& kind) {
    Instance instance(stage.effect);
    if (run.requireSuccess(instance.setUp(), "sequence setup")) use(stage, instance, kind);
  });
}

struct Size {
  int width, height;
};
constexpr Size kSizes[] = {{1, 1}, {1, 9}, {11, 1}, {2, 2}, {17, 13}, {64, 40}};

std::string text(const Size& size) { return std::to_string(size.width) + " x " + std::to_string(size.height); }

void rendersEverySize(CheckRun& run) {
  withInstanceForEveryKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    for (const Size& size : kSizes) {
      run.trial(kind.name + ", " + text(size));
      const World layer = testPicture(kind.format, size.width, size.height);
      const auto first = renderFrame(stage, instance, kind, {.input = &layer});
      const auto second = renderFrame(stage, instance, kind, {.input = &layer});
      if (first && second) run.require(alike(first, second), "the same frame is another the second time");
    }
  });
}

void takesEveryRowLayout(CheckRun& run) {
  constexpr RowLayout kLayouts[] = {{.paddingBytes = 0},
                                    {.paddingBytes = 4},
                                    {.paddingBytes = 100},
                                    {.bottomUp = true},
                                    {.paddingBytes = 12, .bottomUp = true}};
  withInstanceForEveryKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 15, 6);
    std::optional<World> first;
    for (const RowLayout& in : kLayouts) {
      for (const RowLayout& out : kLayouts) {
        stage.host.options().inputRows = in;
        stage.host.options().outputRows = out;
        const auto told = [](const RowLayout& rows) {
          return std::to_string(rows.paddingBytes) + " bytes of padding" + (rows.bottomUp ? ", bottom up" : "");
        };
        run.trial(kind.name + ", input rows with " + told(in) + ", output rows with " + told(out));
        auto picture = renderFrame(stage, instance, kind, {.input = &layer});
        if (!first) {
          first = std::move(picture);
        } else if (picture) {
          run.require(alike(first, picture), "the frame depends on how its rows lie in memory");
        }
      }
    }
  });
}

void rendersEveryResolution(CheckRun& run) {
  withInstanceForEveryKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    for (const auto& [x, y] : {std::pair(1u, 2u), std::pair(2u, 2u), std::pair(3u, 1u), std::pair(8u, 8u)}) {
      run.trial(kind.name + ", at 1/" + std::to_string(x) + " and 1/" + std::to_string(y) + " of the resolution");
      stage.host.options().downsampleX = {1, x};
      stage.host.options().downsampleY = {1, y};
      const World layer = testPicture(kind.format, 21, 10);
      (void)renderFrame(stage, instance, kind, {.input = &layer});
    }
  });
}

void rendersEveryTime(CheckRun& run) {
  struct Moment {
    A_long time, step;
    A_u_long scale;
  };
  withInstanceForEveryKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 9, 5);
    for (const Moment& moment :
         {Moment{0, 1, 25}, {249, 1, 25}, {1001, 1001, 30000}, {-5, 1, 25}, {1 << 30, 512, 15360}}) {
      run.trial(kind.name + ", at time " + std::to_string(moment.time) + "/" + std::to_string(moment.scale));
      stage.host.options().currentTime = moment.time;
      stage.host.options().timeStep = moment.step;
      stage.host.options().timeScale = moment.scale;
      (void)renderFrame(stage, instance, kind, {.input = &layer});
    }
  });
}

void rendersEveryQuality(CheckRun& run) {
  withInstanceForEveryKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 9, 5);
    for (const A_long quality : {PF_Quality_LO, PF_Quality_HI}) {
      for (const PF_Field field : {PF_Field_FRAME, PF_Field_UPPER, PF_Field_LOWER}) {
        run.trial(kind.name + ", quality " + std::to_string(quality) + ", field " + std::to_string(field));
        stage.host.options().quality = quality;
        stage.host.options().field = field;
        (void)renderFrame(stage, instance, kind, {.input = &layer});
      }
    }
  });
}

}  // namespace

std::vector<Check> frameChecks() {
  return {
      {"sizes", "Frames of every size render within their rows, and alike when repeated.", rendersEverySize},
      {"row-layouts", "A frame does not depend on how its rows lie in memory.", takesEveryRowLayout},
      {"resolutions", "Frames render at reduced resolution.", rendersEveryResolution},
      {"times", "Frames render at every time and rate.", rendersEveryTime},
      {"qualities", "Frames render in every quality and field.", rendersEveryQuality},
  };
}

}  // namespace quiltor::standalone
