#pragma once

#include <filesystem>
#include <functional>
#include <ostream>

#include "standalone/host/effect.h"
#include "standalone/host/host.h"

namespace quiltor::standalone {

// What every command is told about the module and how to run it.
struct SessionOptions {
  std::filesystem::path module;        // empty: the module beside the program
  bool trace = false;                  // one line on `err` for every selector, suite and script that the module touches
  A_long appId = kAppId_AfterEffects;  // the application that is played
};

// Loads the module, sets it up, lets `use` work with it and shuts it down. Afterwards everything that the host found
// wrong with the module is listed on `err`. Throws ModuleError, what `use` throws, or CommandFailure when the module
// failed or broke a rule of the host; nothing that was rendered then may be kept.
void withEffect(const SessionOptions& options, HostOptions host, std::ostream& err,
                const std::function<void(Effect&)>& use);

// Throws CommandFailure for a call that the effect did not answer with success; `doing` starts the text.
void requireSuccess(const CallResult& result, const std::string& doing);

// "516 (Missing suite)": an effect's answer and its message, if any, on one line.
[[nodiscard]] std::string describeFailure(PF_Err code, std::string message);

}  // namespace quiltor::standalone
