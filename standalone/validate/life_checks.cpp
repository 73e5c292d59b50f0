// Set-up, set-down and what is asked without an instance.
#include <algorithm>
#include <string>
#include <vector>

#include "standalone/validate/stage.h"

namespace quiltor::standalone {
namespace {

void setsUp(CheckRun& run) {
  run.trial("");
  Stage stage(run);
  stage.setUp();
}

void setsUpAgain(CheckRun& run) {
  Host host(run.hostOptions());
  for (int life = 1; life <= 3; ++life) {
    run.trial("life " + std::to_string(life));
    Effect effect(host, run.module());
    run.requireSuccess(effect.setUp(), "setting up");
    run.requireSuccess(effect.shutDown(), "shutting down");
    run.takeFindings(host.findings());
  }
}

void registersTheSameAgain(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  const auto names = [&] {
    std::vector<std::string> all;
    for (const Parameter& parameter : stage.effect.parameters()) {
      all.push_back(parameter.name + ", id " + std::to_string(parameter.definition.uu.id) + ", type " +
                    std::to_string(parameter.definition.param_type));
    }
    return all;
  };
  const std::vector<std::string> first = names();
  run.trial("");
  run.requireSuccess(stage.effect.paramsSetup(), "the second parameter setup");
  run.require(names() == first, "parameter setup registers other parameters when it is called again");
}

// What lies outside its own range cannot be chosen by a user.
void defaultsLieInTheirRanges(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  for (const Parameter& parameter : stage.effect.parameters()) {
    if (parameter.definition.param_type != PF_Param_FLOAT_SLIDER) continue;
    const PF_FloatSliderDef& slider = parameter.definition.u.fs_d;
    run.trial("parameter \"" + parameter.name + "\"");
    run.require(slider.valid_min <= slider.valid_max && slider.slider_min <= slider.slider_max,
                "a range ends before it begins");
    run.require(slider.dephault >= slider.valid_min && slider.dephault <= slider.valid_max,
                "the default lies outside the valid range");
  }
}

void answersAbout(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  run.trial("");
  const CallResult result = stage.effect.about();
  run.requireSuccess(result, "about");
  const auto& text = result.out.return_msg;
  run.require(std::find(std::begin(text), std::end(text), '\0') != std::end(text), "the about text has no end");
}

// Selectors that no host sends yet.
void ignoresUnknownSelectors(CheckRun& run) {
  Stage stage(run);
  if (!stage.setUp()) return;
  for (const A_long selector : {-1, 25, 26, 27, 29, 100, 1000, 0x7FFFFFFF}) {
    run.trial("");
    run.requireSuccess(stage.effect.call({.selector = selector}), selectorName(selector));
  }
}

// Selectors that hosts send to effects that ask for them.
std::vector<A_long> unannouncedSelectors(const Effect& effect) {
  std::vector<A_long> all{PF_Cmd_UNUSED_0, PF_Cmd_COMPLETELY_GENERAL};
  if (!(effect.outFlags() & PF_OutFlag_I_HAVE_EXTERNAL_DEPENDENCIES)) all.push_back(PF_Cmd_GET_EXTERNAL_DEPENDENCIES);
  if (!(effect.outFlags2() & PF_OutFlag2_SUPPORTS_QUERY_DYNAMIC_FLAGS)) all.push_back(PF_Cmd_QUERY_DYNAMIC_FLAGS);
  if (!(effect.outFlags() & (PF_OutFlag_AUDIO_EFFECT_TOO | PF_OutFlag_AUDIO_EFFECT_ONLY))) {
    all.insert(all.end(), {PF_Cmd_AUDIO_RENDER, PF_Cmd_AUDIO_SETUP, PF_Cmd_AUDIO_SETDOWN});
  }
  const auto& parameters = effect.parameters();
  const bool arbitrary = std::any_of(parameters.begin(), parameters.end(), [](const Parameter& parameter) {
    return parameter.definition.param_type == PF_Param_ARBITRARY_DATA;
  });
  if (!arbitrary) all.push_back(PF_Cmd_ARBITRARY_CALLBACK);
  return all;
}

void ignoresUnannouncedSelectors(CheckRun& run) {
  for (const A_long application : {kAppId_AfterEffects, kAppId_PremierePro}) {
    HostOptions options = run.hostOptions();
    options.appId = application;
    Stage stage(run, options);
    const std::string where = application == kAppId_PremierePro ? "in the video editor" : "";
    run.trial(where);
    if (!stage.setUp()) continue;
    for (const A_long selector : unannouncedSelectors(stage.effect)) {
      run.trial(where);
      run.requireSuccess(stage.effect.call({.selector = selector}), selectorName(selector));
      run.takeFindings(stage.host.findings());
    }
  }
}

void livesInTheVideoEditor(CheckRun& run) {
  HostOptions options = run.hostOptions();
  options.appId = kAppId_PremierePro;
  Stage stage(run, options);
  run.trial("in the video editor");
  if (!stage.setUp()) return;
  run.requireSuccess(stage.effect.about(), "about");
  Instance instance(stage.effect);
  run.requireSuccess(instance.setUp(), "sequence setup");
  run.requireSuccess(instance.shutDown(), "sequence setdown");
}

}  // namespace

std::vector<Check> lifeChecks() {
  return {
      {kLoads, "The module can be loaded and exports the entry point.", [](CheckRun& run) { run.trial(""); }},
      {"set-up", "Global and parameter setup succeed, add what they count, and setdown leaves nothing.", setsUp},
      {"set-up-again", "An effect can be set up and shut down several times in one process.", setsUpAgain},
      {"parameters-again", "Parameter setup registers the same parameters each time.", registersTheSameAgain},
      {"parameter-ranges", "Every slider's default lies in its valid range.", defaultsLieInTheirRanges},
      {"about", "About succeeds and its text has an end.", answersAbout},
      {"unknown-selectors", "Selectors that the effect does not know are answered with 0.", ignoresUnknownSelectors},
      {"unannounced-selectors", "Selectors that the effect does not ask for are answered with 0.",
       ignoresUnannouncedSelectors},
      {"video-editor", "The effect lives in the video editor too.", livesInTheVideoEditor},
  };
}

}  // namespace quiltor::standalone
