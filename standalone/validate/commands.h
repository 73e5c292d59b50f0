#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "standalone/host/effect.h"
#include "standalone/host/instance.h"

namespace quiltor::standalone {

// An effect and an application of it, made anew for every command.
struct Subject {
  std::unique_ptr<Effect> effect;
  std::unique_ptr<Instance> instance;
  PF_Handle handle = nullptr;  // sequence data that the host has let go of
  std::vector<unsigned char> flat;

  void shutDown();  // calls for what is still set up
};

// A call into the effect outside rendering, with all that comes before it in an effect's life.
struct Command {
  std::string name;  // "sequence-setup"
  std::function<void(Subject&)> prepare;
  std::function<CallResult(Subject&)> call;
  bool repeatable = true;  // whether hosts call it again after a failure
};

// Prepares a fresh subject of this effect for the command.
void prepare(Subject& subject, Host& host, const EffectModule& module, const Command& command);

[[nodiscard]] const std::vector<Command>& commands();

// The first parameter with a control of the effect's own; 0 without one.
[[nodiscard]] int customControlOf(const Effect& effect);

}  // namespace quiltor::standalone
