// What smart rendering promises beyond a whole frame.
#include <string>
#include <vector>

#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

template <class Use>
void forEverySmartKind(CheckRun& run, Use use) {
  Stage stage(run);
  if (!stage.setUp()) return;
  bool any = false;
  Instance instance(stage.effect);
  run.trial("");
  if (!run.requireSuccess(instance.setUp(), "sequence setup")) return;
  for (const FrameKind& kind : frameKinds(stage)) {
    if (!kind.smart) continue;
    any = true;
    use(stage, instance, kind);
  }
  if (!any) run.notApplicable("the effect does not render by the smart selectors");
}

void rendersLikeTheClassicSelectors(CheckRun& run) {
  forEverySmartKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    FrameKind classic = kind;
    classic.smart = false;
    if (kind.format == WorldFormat::ArgbFloat) return;
    run.trial(kind.name);
    const World layer = testPicture(kind.format, 19, 11);
    const auto smart = renderFrame(stage, instance, kind, {.input = &layer});
    const auto plain = renderFrame(stage, instance, classic, {.input = &layer});
    if (smart && plain) run.require(alike(smart, plain), "the frame differs from that of the classic selectors");
  });
}

void rendersParts(CheckRun& run) {
  forEverySmartKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 20, 14);
    const auto whole = renderFrame(stage, instance, kind, {.input = &layer});
    for (const PF_LRect& part :
         {PF_LRect{0, 0, 1, 1}, {5, 3, 12, 9}, {13, 10, 20, 14}, {-8, -4, 6, 5}, {0, 7, 20, 8}}) {
      run.trial(kind.name + ", the part " + std::to_string(part.left) + ", " + std::to_string(part.top) + " to " +
                std::to_string(part.right) + ", " + std::to_string(part.bottom));
      const auto picture = renderFrame(stage, instance, kind, {.input = &layer, .request = part});
      if (!whole || !picture) continue;
      run.require(alike(whole->cropped(picture->bounds()), picture->cropped(whole->bounds())),
                  "the part differs from the same part of the whole frame");
    }
  });
}

void takesEmptyRequests(CheckRun& run) {
  forEverySmartKind(run, [&](Stage& stage, Instance& instance, const FrameKind& kind) {
    const World layer = testPicture(kind.format, 20, 14);
    for (const PF_LRect& part : {PF_LRect{0, 0, 0, 0}, {100, 100, 120, 120}}) {
      run.trial(kind.name + (part.left ? ", a part outside the layer" : ", an empty request"));
      (void)renderFrame(stage, instance, kind, {.input = &layer, .request = part});
    }
  });
}

}  // namespace

std::vector<Check> smartChecks() {
  return {
      {"smart-and-classic", "Smart and classic selectors render the same frame.", rendersLikeTheClassicSelectors},
      {"parts", "A part of a frame is that part of the whole frame.", rendersParts},
      {"empty-requests", "Requests without pixels do no harm.", takesEmptyRequests},
  };
}

}  // namespace quiltor::standalone
