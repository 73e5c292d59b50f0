#include "standalone/host/host.h"

#include <utility>

#include "standalone/host/services/host_state.h"

namespace quiltor::standalone {

Host::Host(HostOptions options) : state_(std::make_unique<HostState>(std::move(options))) {}
Host::~Host() = default;

HostOptions& Host::options() { return state_->options; }
FaultPlan& Host::faults() { return state_->faults; }
Findings& Host::findings() { return state_->findings; }

int Host::refreshAllWindowsCount() const { return state_->refreshAllWindowsCount; }
const std::string& Host::optionsButtonName() const { return state_->optionsButtonName; }
const std::vector<std::string>& Host::registeredEffectNames() const { return state_->registeredEffectNames; }
const std::vector<PrPixelFormat>& Host::declaredPixelFormats() const { return state_->declaredPixelFormats; }
int Host::abortCallCount() const { return state_->abortCallCount; }
std::size_t Host::liveHandleCount() const { return state_->handles.liveCount(); }
int Host::suiteBalance() const { return state_->suites.balance(); }

}  // namespace quiltor::standalone
