#pragma once

#include <optional>
#include <string>

#include "hostapi/effect.h"
#include "standalone/host/services/world.h"

namespace quiltor::standalone {

// One frame to render. Time, resolution and aspect come from the host's options.
struct Frame {
  // The layer's pixels at the render's resolution; its format is the depth of the render, blue first for effects that
  // declare that to the video editor. The effect receives a copy with the host's row layout.
  const World* input = nullptr;
  // Smart render only: the wanted part in layer coordinates; without it the whole layer. An empty one asks for the
  // maximum rectangle alone.
  std::optional<PF_LRect> request = std::nullopt;
  // Smart render only: an earlier picture of this host that is not needed any more. A host that is not strict renders
  // over it when it has the new one's format and size, as hosts do that keep pools of worlds.
  World* spare = nullptr;
};

struct RenderResult {
  PF_Err code = PF_Err_NONE;  // the first error among the calls that make up the frame
  std::string message;        // the first return message among them
  PF_OutFlags outFlags = 0;   // of all of them
  // The picture; absent when the effect failed before it, or when an empty rectangle made rendering needless. Its
  // origin is the left-top of the result rectangle.
  std::optional<World> output;
  PF_LRect resultRect{};     // smart render only
  PF_LRect maxResultRect{};  // smart render only
  // Inside the effect, over all calls that make up the frame.
  double seconds = 0;
  double processorSeconds = 0;  // of all cores together
};

}  // namespace quiltor::standalone
