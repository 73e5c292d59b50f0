#include "standalone/host/services/call_scope.h"

namespace quiltor::standalone {
namespace {

thread_local CallScope* call = nullptr;
thread_local int indexInCall = 0;

}  // namespace

std::string nameOf(const SuiteId& suite) { return "\"" + suite.first + "\" " + std::to_string(suite.second); }

EnterCall::EnterCall(CallScope* entered, int threadIndex) : previousCall_(call), previousIndex_(indexInCall) {
  call = entered;
  indexInCall = threadIndex;
}

EnterCall::~EnterCall() {
  call = previousCall_;
  indexInCall = previousIndex_;
}

CallScope* currentCall() { return call; }
int currentThreadIndex() { return indexInCall; }
std::string currentSelector() { return call ? call->selector() : "outside a call"; }

}  // namespace quiltor::standalone
