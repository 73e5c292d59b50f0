#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quiltor::standalone {

#define QUILTOR_FINDING_KINDS(M) \
  M(SuiteNotReleased)            \
  M(SuiteReleasedTooOften)       \
  M(HandleLeftLocked)            \
  M(HandleUnlockedTooOften)      \
  M(HandleLeaked)                \
  M(HandleDisposedTwice)         \
  M(HandleUsedAfterDispose)      \
  M(HandleDisposedWhileLocked)   \
  M(HandleOverrun)               \
  M(HandleUnknown)               \
  M(ParamNotCheckedIn)           \
  M(ParamCheckedInTwice)         \
  M(ParamCheckoutIntoParams)     \
  M(ParamCountMismatch)          \
  M(ParamIdDuplicate)            \
  M(ParamNameNotTerminated)      \
  M(ParamTypeUnknown)            \
  M(PopupDefaultOutOfRange)      \
  M(PopupItemCountWrong)         \
  M(AddParamIndexNotAppend)      \
  M(WorldNotDisposed)            \
  M(WorldDisposedTwice)          \
  M(WorldOverrun)                \
  M(InputWorldWritten)           \
  M(CheckoutIdDuplicate)         \
  M(CheckoutIdUnknown)           \
  M(CheckoutIdNegative)          \
  M(OutputBeforeInput)           \
  M(ResultRectOutsideRequest)    \
  M(ResultRectOutsideMaximum)    \
  M(StreamNotDisposed)           \
  M(StreamValueNotDisposed)      \
  M(EffectNotDisposed)           \
  M(EffectDisposedBeforeStream)  \
  M(MaskNotDisposed)             \
  M(MaskDisposedBeforeStream)    \
  M(DrawbotObjectNotReleased)    \
  M(PathNotCheckedIn)            \
  M(PathCheckedInTwice)          \
  M(ObjectUnknown)               \
  M(FlatDataIsLive)              \
  M(FlatHandleNotDisposed)       \
  M(WrongThread)                 \
  M(WrongSelector)               \
  M(BadArgument)                 \
  M(UnimplementedSlot)

// What an effect can do wrong in the host's eyes. None of it stops the call in which it happens.
enum class FindingKind {
#define QUILTOR_KIND(name) name,
  QUILTOR_FINDING_KINDS(QUILTOR_KIND)
#undef QUILTOR_KIND
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
