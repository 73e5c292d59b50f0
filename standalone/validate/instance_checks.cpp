// Sequence data: made, saved, copied, restored, damaged.
#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "standalone/validate/commands.h"
#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

using Bytes = std::vector<unsigned char>;

// A stage with one instance; `use` gets both when they are set up.
template <class Use>
void withInstance(CheckRun& run, Use use) {
  Stage stage(run);
  if (!stage.setUp()) return;
  Instance instance(stage.effect);
  run.trial("");
  if (!run.requireSuccess(instance.setUp(), "sequence setup")) return;
  use(stage, instance);
  run.requireSuccess(instance.shutDown(), "sequence setdown");
  run.takeFindings(stage.host.findings());
}

const FrameKind kPlain{false, WorldFormat::Argb8, "classic, 8 bits"};

void setsUpAndDown(CheckRun& run) {
  withInstance(run, [](Stage&, Instance&) {});
}

void survivesFlattening(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    const World layer = testPicture(WorldFormat::Argb8, 12, 9);
    const auto before = renderFrame(stage, instance, kPlain, {.input = &layer});
    for (int round = 1; round <= 2; ++round) {
      run.trial("round " + std::to_string(round));
      run.requireSuccess(instance.flatten(), "sequence flatten");
      run.requireSuccess(instance.flatten(), "sequence flatten of flat data");
      run.requireSuccess(instance.resetup(), "sequence resetup");
      run.requireSuccess(instance.resetup(), "sequence resetup of live data");
      run.require(alike(before, renderFrame(stage, instance, kPlain, {.input = &layer})),
                  "the frame is another after flatten and resetup");
    }
  });
}

void handsOutCopies(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    if (!(stage.effect.outFlags2() & PF_OutFlag2_SUPPORTS_GET_FLATTENED_SEQUENCE_DATA)) {
      return run.notApplicable("the effect does not offer flat copies");
    }
    const World layer = testPicture(WorldFormat::Argb8, 12, 9);
    const auto before = renderFrame(stage, instance, kPlain, {.input = &layer});
    Bytes flat;
    run.requireSuccess(instance.getFlattened(flat), "the request for a flat copy");
    run.require(alike(before, renderFrame(stage, instance, kPlain, {.input = &layer})),
                "the frame is another after the request for a flat copy");
    if (flat.empty()) return;
    Instance copy(stage.effect);
    run.trial("the copy");
    run.requireSuccess(copy.resetupFrom(flat), "sequence resetup");
    run.require(alike(before, renderFrame(stage, copy, kPlain, {.input = &layer})),
                "an instance made of a flat copy renders another frame");
  });
}

void startsWithoutData(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  Instance instance(stage.effect);
  run.trial("");
  run.requireSuccess(instance.resetupFromNull(), "sequence resetup without data");
}

// What it answers is its own affair, as long as it stays whole.
void survivesDamagedData(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    run.requireSuccess(instance.flatten(), "sequence flatten");
    const Bytes whole = instance.sequenceBytes();
    run.requireSuccess(instance.resetup(), "sequence resetup");
    std::mt19937 random(2);
    constexpr int kTrials = 60;
    for (int i = 0; i < kTrials && !whole.empty(); ++i) {
      Bytes damaged = whole;
      const bool cut = i % 2 == 0;
      if (cut) damaged.resize(whole.size() * static_cast<std::size_t>(i) / kTrials);
      for (int flips = cut ? 0 : 1 + i % 5; flips > 0; --flips) {
        damaged[random() % damaged.size()] = static_cast<unsigned char>(random());
      }
      run.trial(cut ? "saved data cut to " + std::to_string(damaged.size()) + " of " + std::to_string(whole.size()) +
                          " bytes"
                    : "saved data with changed bytes, number " + std::to_string(i));
      Instance victim(stage.effect);
      victim.resetupFrom(damaged);
      victim.shutDown();
      run.takeFindings(stage.host.findings());
    }
  });
}

void keepsInstancesApart(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  const World layer = testPicture(WorldFormat::Argb8, 12, 9);
  std::vector<std::unique_ptr<Instance>> instances;
  std::optional<World> first;
  for (int i = 0; i < 4; ++i) {
    run.trial("instance " + std::to_string(i + 1));
    instances.push_back(std::make_unique<Instance>(stage.effect));
    run.requireSuccess(instances.back()->setUp(), "sequence setup");
    auto picture = renderFrame(stage, *instances.back(), kPlain, {.input = &layer});
    if (i == 0) first = std::move(picture);
  }
  for (const std::size_t gone : {1u, 0u, 1u}) {
    run.trial("after an instance was set down");
    run.requireSuccess(instances[gone]->shutDown(), "sequence setdown");
    instances.erase(instances.begin() + static_cast<std::ptrdiff_t>(gone));
    run.require(alike(first, renderFrame(stage, *instances.back(), kPlain, {.input = &layer})),
                "the frame is another once another instance is gone");
  }
}

void answersItsPanel(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    const auto& parameters = stage.effect.parameters();
    run.requireSuccess(instance.updateUi(), "the refresh of the panel");
    for (std::size_t i = 1; i < parameters.size(); ++i) {
      const PF_ParamDef& definition = parameters[i].definition;
      if (!(definition.flags & PF_ParamFlag_SUPERVISE)) continue;
      const int index = static_cast<int>(i);
      const int items = definition.param_type == PF_Param_POPUP ? definition.u.pd.num_choices : 1;
      for (int item = 1; item <= items; ++item) {
        run.trial("parameter \"" + parameters[i].name + "\", item " + std::to_string(item));
        if (definition.param_type == PF_Param_POPUP) instance.setChoice(index, item);
        run.requireSuccess(instance.changedByUser(index), "the change of a parameter");
        run.takeFindings(stage.host.findings());
      }
    }
  });
}

void drawsItsControl(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    const int control = customControlOf(stage.effect);
    if (control == 0) return run.notApplicable("the effect has no control of its own");
    for (const PF_EventInFlags flags : {0, static_cast<int>(PF_EI_DONT_DRAW)}) {
      run.trial(flags ? "told not to draw" : "");
      run.requireSuccess(instance.send({.type = PF_Event_DRAW, .index = control, .inFlags = flags}).call, "drawing");
    }
    stage.host.options().offerDrawing = false;
    run.trial("without a drawing reference");
    run.requireSuccess(instance.drawControl(control).call, "drawing");
    // What a click comes to without scripts is the effect's own affair.
    run.trial("clicked");
    (void)instance.clickedByUser(control);
  });
}

// The host has no scripts here; what the effect says about that is its own affair.
void answersItsOptionsButton(CheckRun& run) {
  withInstance(run, [&](Stage& stage, Instance& instance) {
    if (!(stage.effect.outFlags() & PF_OutFlag_I_DO_DIALOG)) {
      return run.notApplicable("the effect has no options dialog");
    }
    instance.doDialog();
  });
}

}  // namespace

std::vector<Check> instanceChecks() {
  return {
      {"instance", "Sequence setup and setdown succeed and leave nothing.", setsUpAndDown},
      {"flatten", "Flatten and resetup give the same instance back, also when repeated.", survivesFlattening},
      {"flat-copy", "A flat copy leaves the instance as it is and makes an equal one.", handsOutCopies},
      {"resetup-without-data", "Resetup without data makes a new instance.", startsWithoutData},
      {"damaged-data", "Damaged saved data do no harm.", survivesDamagedData},
      {"several-instances", "Instances do not depend on one another.", keepsInstancesApart},
      {"panel", "The panel's refresh and every change of a supervised parameter succeed.", answersItsPanel},
      {"control", "The effect's own control draws, and a click on it does no harm.", drawsItsControl},
      {"options-dialog", "The options button does no harm.", answersItsOptionsButton},
  };
}

}  // namespace quiltor::standalone
