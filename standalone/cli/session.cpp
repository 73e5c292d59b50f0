#include "standalone/cli/session.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/host/effect_module.h"

namespace quiltor::standalone {

std::string describeFailure(PF_Err code, std::string message) {
  std::ranges::replace(message, '\r', ' ');
  std::ranges::replace(message, '\n', ' ');
  return "the effect answered with error " + std::to_string(code) + (message.empty() ? "" : " (" + message + ")");
}

void requireSuccess(const CallResult& result, const std::string& doing) {
  if (!result.succeeded()) throw CommandFailure(doing + ": " + describeFailure(result.code, result.message()));
}

void withEffect(const SessionOptions& options, HostOptions hostOptions, std::ostream& err,
                const std::function<void(Effect&)>& use) {
  const EffectModule module(options.module.empty() ? defaultModulePath() : options.module);
  hostOptions.appId = options.appId;
  if (options.trace) hostOptions.trace = [&err](std::string_view line) { err << line << '\n'; };
  Host host(std::move(hostOptions));

  std::exception_ptr failure;
  {
    Effect effect(host, module);
    try {
      requireSuccess(effect.setUp(), utf8FromPath(module.path()));
      use(effect);
      requireSuccess(effect.shutDown(), utf8FromPath(module.path()));
    } catch (...) {
      failure = std::current_exception();
      effect.shutDown();
    }
  }
  const auto findings = host.findings().all();
  for (const Finding& finding : findings) err << "quiltor: " << describe(finding) << '\n';
  if (failure) std::rethrow_exception(failure);
  if (!findings.empty()) {
    throw CommandFailure(utf8FromPath(module.path()) + ": the effect broke the host's rules in the " +
                         std::to_string(findings.size()) + " way(s) listed above");
  }
}

}  // namespace quiltor::standalone
