#include "standalone/host/services/fault_plan.h"

namespace quiltor::standalone {

void FaultPlan::failAt(std::size_t k) { restart(std::nullopt, k, false); }
void FaultPlan::failAt(HostCall call, std::size_t k) { restart(call, k, false); }
void FaultPlan::failAlways(HostCall call) { restart(call, 0, true); }
void FaultPlan::failNever() { restart(std::nullopt, kNever, false); }

void FaultPlan::restart(std::optional<HostCall> call, std::size_t k, bool always) {
  std::lock_guard lock(mutex_);
  call_ = call;
  k_ = k;
  always_ = always;
  struck_ = false;
  total_ = 0;
  counts_.fill(0);
}

bool FaultPlan::struck() const {
  std::lock_guard lock(mutex_);
  return struck_;
}

std::size_t FaultPlan::count() const {
  std::lock_guard lock(mutex_);
  return total_;
}

std::size_t FaultPlan::count(HostCall call) const {
  std::lock_guard lock(mutex_);
  return counts_[static_cast<std::size_t>(call)];
}

bool FaultPlan::strikes(HostCall call) {
  std::lock_guard lock(mutex_);
  std::size_t& ofClass = counts_[static_cast<std::size_t>(call)];
  const bool matches = !call_ || *call_ == call;
  const bool strike = matches && (always_ || (call_ ? ofClass : total_) == k_);
  ++ofClass;
  ++total_;
  struck_ = struck_ || strike;
  return strike;
}

}  // namespace quiltor::standalone
