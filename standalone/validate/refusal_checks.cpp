// The host refuses one thing at a time: a suite, memory, a lock, a checkout, the frame itself. What the effect answers
// is its own affair; it gives back what it holds, and works when it is called again.
#include <optional>
#include <string>
#include <vector>

#include "standalone/host/services/host_state.h"
#include "standalone/validate/commands.h"
#include "standalone/validate/refusal_sweep.h"
#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

void refuseInCommand(CheckRun& run, const Command& command, A_long application) {
  HostOptions options = run.hostOptions();
  options.appId = application;
  Host host(options);
  Subject subject;
  CallResult answer;
  const auto finish = [&] {
    // A set-down that was refused something could not dispose what it was given.
    if (!answer.succeeded() && subject.handle) host.state().handles.drop(subject.handle);
    subject.shutDown();
    run.takeFindings(host.findings());
  };
  const std::string where = application == kAppId_PremierePro ? ", in the video editor" : "";
  sweepRefusals(host, {.announce = [&](const Refusal& refusal) { run.trial("refusing " + refusal.text() + where); },
                       .prepare = [&] { prepare(subject, host, run.module(), command); },
                       .command = [&] { answer = command.call(subject); },
                       .examine =
                           [&](const Refusal&, bool came) {
                             run.require(came, "the call was not made the second time");
                             run.takeFindings(host.findings());
                             if (!answer.succeeded() && command.repeatable) {
                               answer = command.call(subject);
                               run.requireSuccess(answer, command.name + ", called again,");
                             }
                             finish();
                           }});
  finish();
}

// False when the effect has no frames of this kind.
bool refuseInFrames(CheckRun& run, bool smart, A_long application) {
  HostOptions options = run.hostOptions();
  options.appId = application;
  Stage stage(run, options);
  if (!stage.setUp()) return false;
  bool any = false;
  for (const FrameKind& kind : frameKinds(stage)) {
    if (kind.smart != smart) continue;
    any = true;
    const World layer = testPicture(kind.format, 7, 5), other = testPicture(kind.format, 4, 6);
    Instance instance(stage.effect);
    run.trial(kind.name);
    if (!run.requireSuccess(instance.setUp(), "sequence setup")) return true;
    const auto& parameters = stage.effect.parameters();
    for (std::size_t i = 1; i < parameters.size(); ++i) {
      const int index = static_cast<int>(i);
      if (parameters[i].definition.param_type == PF_Param_LAYER) instance.setLayer(index, &other);
      if (parameters[i].definition.param_type == PF_Param_PATH) instance.setPath(index, 3);
    }
    const auto expected = renderFrame(stage, instance, kind, {.input = &layer});
    sweepRefusals(
        stage.host,
        {.announce = [&](const Refusal& refusal) { run.trial("refusing " + refusal.text() + ", " + kind.name); },
         .prepare = [] {},
         .command =
             [&] {
               const Frame frame{.input = &layer};
               (void)(smart ? instance.renderSmart(frame) : instance.render(frame));
             },
         .examine =
             [&](const Refusal&, bool came) {
               run.require(came, "the call was not made the second time");
               run.takeFindings(stage.host.findings());
               const auto next = renderFrame(stage, instance, kind, {.input = &layer});
               run.require(alike(expected, next), "the next frame is another");
             }});
  }
  return any;
}

}  // namespace

std::vector<Check> refusalChecks() {
  std::vector<Check> checks;
  for (const Command& command : commands()) {
    checks.push_back({"refusals-" + command.name, "Whatever the host refuses in " + command.name + ", nothing is held.",
                      [&command](CheckRun& run) {
                        for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
                          refuseInCommand(run, command, application);
                        }
                        if (run.trials() == 0) run.notApplicable("the effect asks the host for nothing there");
                      }});
  }
  checks.push_back(
      {"refusals-frames", "Whatever the host refuses in a frame, the next one is right.", [](CheckRun& run) {
         for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro})
           refuseInFrames(run, false, application);
       }});
  checks.push_back({"refusals-smart-frames", "Whatever the host refuses in a smart frame, the next one is right.",
                    [](CheckRun& run) {
                      if (!refuseInFrames(run, true, kAppId_AfterEffects))
                        run.notApplicable("the effect does not render by the smart selectors");
                    }});
  return checks;
}

}  // namespace quiltor::standalone
