#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor::standalone {

// What an effect can do wrong in the host's eyes. None of it stops the call in which it happens.
enum class FindingKind {
  SuiteNotReleased,
  SuiteReleasedTooOften,
  HandleLeftLocked,
  HandleUnlockedTooOften,
  HandleLeaked,
  HandleDisposedTwice,
  HandleUsedAfterDispose,
  HandleDisposedWhileLocked,
  HandleOverrun,
  HandleUnknown,
  ParamNotCheckedIn,
  ParamCheckedInTwice,
  ParamCheckoutIntoParams,
  ParamCountMismatch,
  ParamIdDuplicate,
  ParamNameNotTerminated,
  ParamTypeUnknown,
  PopupDefaultOutOfRange,
  PopupItemCountWrong,
  AddParamIndexNotAppend,
  WorldNotDisposed,
  WorldDisposedTwice,
  WorldOverrun,
  InputWorldWritten,
  CheckoutIdDuplicate,
  CheckoutIdUnknown,
  CheckoutIdNegative,
  OutputBeforeInput,
  ResultRectOutsideRequest,
  ResultRectOutsideMaximum,
  StreamNotDisposed,
  StreamValueNotDisposed,
  EffectReferenceNotDisposed,
  ObjectUnknown,
  FlatDataIsLive,
  FlatHandleNotDisposed,
  DefinitionNotCleared,
  WrongThread,
  WrongSelector,
  BadArgument,
  UnimplementedSlot,
};

[[nodiscard]] std::string_view nameOf(FindingKind kind);

struct Finding {
  FindingKind kind;
  std::string selector;  // the host's name of the call, such as "PF_Cmd_RENDER", or "shut-down" for the final count
  std::string text;
};

// "PF_Cmd_RENDER: HandleLeaked: ..." on one line.
[[nodiscard]] std::string describe(const Finding& finding);

// Collects findings from any thread.
class Findings {
 public:
  void record(FindingKind kind, std::string text);
  [[nodiscard]] std::vector<Finding> all() const;
  [[nodiscard]] bool empty() const;
  [[nodiscard]] bool has(FindingKind kind) const;
  [[nodiscard]] std::string text() const;  // one line each; empty without findings
  void clear();

 private:
  mutable std::mutex mutex_;
  std::vector<Finding> findings_;
};

}  // namespace quiltor::standalone
