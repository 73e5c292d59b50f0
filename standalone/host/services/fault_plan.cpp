#include "standalone/host/services/fault_plan.h"

#include <utility>

#include "standalone/host/services/call_scope.h"

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
  listing_ = false;
  listed_.clear();
}

void FaultPlan::list() {
  failNever();
  std::lock_guard lock(mutex_);
  listing_ = true;
}

std::vector<ListedCall> FaultPlan::listed() const {
  std::lock_guard lock(mutex_);
  return listed_;
}

void FaultPlan::answerWith(PF_Err code) {
  std::lock_guard lock(mutex_);
  answer_ = code;
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

bool FaultPlan::strikes(HostCall call, std::string what) {
  std::lock_guard lock(mutex_);
  std::size_t& ofClass = counts_[static_cast<std::size_t>(call)];
  const bool matches = !call_ || *call_ == call;
  const bool strike = matches && (always_ || (call_ ? ofClass : total_) == k_);
  ++ofClass;
  ++total_;
  struck_ = struck_ || strike;
  if (listing_) listed_.push_back({call, std::move(what), currentSelector()});
  return strike;
}

PF_Err FaultPlan::refusal(HostCall call, std::string what, PF_Err own) {
  if (!strikes(call, std::move(what))) return PF_Err_NONE;
  std::lock_guard lock(mutex_);
  return answer_ ? answer_ : own;
}

}  // namespace quiltor::standalone
