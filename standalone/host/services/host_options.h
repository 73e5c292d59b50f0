#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostapi/effect.h"
#include "standalone/host/masks/mask.h"
#include "standalone/host/services/script_runner.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// The layer's transform, in full-resolution units: scale in percent, rotation in degrees.
struct LayerTransform {
  double positionX = 0, positionY = 0;
  double anchorX = 0, anchorY = 0;
  double scaleX = 100, scaleY = 100;
  double rotation = 0;
};

// What smart rendering hands out as the pixels of a layer parameter that has no layer.
enum class NoLayerPixels { Error, NullWorld, EmptyWorld };

// What an effect gets as the result of a script that gave an empty one.
enum class NoScriptResult { EmptyText, NullHandle };

// Everything a test may turn. Fields may be changed between two calls into the effect, not during one.
struct HostOptions {
  A_long appId = kAppId_AfterEffects;
  PF_SpecVersion interfaceVersion{13, 28};

  // false: trusts the effect, for measurements. Layers are given out themselves where they can be, instead of as copies
  // that are compared afterwards, and memory is given out again as it was given back. Read when the host is made.
  bool strict = true;

  int iterateThreads = 4;
  bool offerIterateGeneric = true;  // false: the slot is null
  std::set<std::pair<std::string, int>> suitesNotOffered = {};
  // Suites of the other application that this one offers too, as later versions of it may.
  std::set<std::pair<std::string, int>> suitesAlsoOffered = {};

  // Different on purpose, so that an effect that takes one for the other is found.
  RowLayout inputRows{.paddingBytes = 20, .bottomUp = false};
  RowLayout outputRows{.paddingBytes = 36, .bottomUp = false};
  NoLayerPixels noLayerPixels = NoLayerPixels::EmptyWorld;

  A_long quality = PF_Quality_HI;
  A_long currentTime = 0;
  A_long timeStep = 1;
  A_u_long timeScale = 25;
  A_long totalTime = 250;
  PF_Field field = PF_Field_FRAME;
  PF_RationalScale downsampleX{1, 1};
  PF_RationalScale downsampleY{1, 1};
  PF_RationalScale pixelAspect{1, 1};
  bool preserveRgbOfZeroAlpha = false;
  bool linearLight = false;  // the video editor names its float pixels so

  LayerTransform transform = {};
  // When set, the transform at a layer time in seconds; `transform` is then not used.
  std::function<LayerTransform(double)> transformAt = nullptr;

  // The layer's masks, each with an identifier of its own.
  std::vector<Mask> masks = {};
  // When set, what becomes of one of them at a layer time in seconds.
  std::function<Mask(const Mask&, double)> maskAt = nullptr;

  // Answers abort and progress calls: the argument counts them from 0 since the last call into the effect began. Empty:
  // always 0. Called on the thread of the effect's call or of iterate's thread index 0.
  std::function<PF_Err(int)> onAbort = nullptr;
  // Runs the scripts of effects; empty: the host has no scripting and says so.
  ScriptRunner runScript = nullptr;
  NoScriptResult noScriptResult = NoScriptResult::EmptyText;
  bool offerDrawing = true;  // false: the drawing reference of a custom control is null

  // Receives one line per call, its result and each suite asked for. Called from any thread, one at a time.
  std::function<void(std::string_view)> trace = nullptr;
};

}  // namespace quiltor::standalone
