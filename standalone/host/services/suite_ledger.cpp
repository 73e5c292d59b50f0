#include "standalone/host/services/suite_ledger.h"

namespace quiltor::standalone {

void SuiteLedger::acquired(const SuiteId& suite) {
  std::lock_guard lock(mutex_);
  ++counts_[suite];
  if (CallScope* call = currentCall()) ++call->suites[suite];
}

bool SuiteLedger::released(const SuiteId& suite) {
  std::lock_guard lock(mutex_);
  CallScope* call = currentCall();
  int& count = counts_[suite];
  if (count < 1 || (call && call->suites[suite] < 1)) {
    findings_.record(FindingKind::SuiteReleasedTooOften, nameOf(suite) + " was released without being acquired");
    return false;
  }
  --count;
  if (call) --call->suites[suite];
  return true;
}

void SuiteLedger::checkCall(const CallScope& call) {
  std::lock_guard lock(mutex_);
  for (const auto& [suite, count] : call.suites) {
    if (count > 0) {
      findings_.record(FindingKind::SuiteNotReleased,
                       nameOf(suite) + " was acquired " + std::to_string(count) + " times more than it was released");
    }
  }
}

int SuiteLedger::balance() const {
  std::lock_guard lock(mutex_);
  int sum = 0;
  for (const auto& [suite, count] : counts_) sum += count;
  return sum;
}

}  // namespace quiltor::standalone
