#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/effect.h"

namespace quiltor::standalone {

// Classes of host services that can be made to fail.
enum class HostCall {
  AcquireSuite,         // answers kSPSuiteNotFoundError, table untouched
  ReleaseSuite,         // answers kSPSuiteAlreadyReleasedError, but the release counts
  NewHandle,            // answers null
  LockHandle,           // answers null, nothing is locked
  CheckoutParam,        // answers 516, the record is untouched
  CheckinParam,         // answers 516, but the check-in counts
  AddParam,             // answers 516, nothing is added
  RegisterUi,           // answers 516
  CheckoutLayer,        // smart pre-render: answers 516
  CheckoutLayerPixels,  // smart render: answers 516
  CheckinLayerPixels,   // smart render: answers 516, but the check-in counts
  CheckoutOutput,       // smart render: answers 516
  NewWorld,             // answers 4
  DisposeWorld,         // answers 516, but the world is disposed
  GetPixelFormat,       // answers 516
  AddPixelFormat,       // answers 516
  Iterate,              // answers 4, no iteration is run
  SetOptionsButton,     // answers 516
  RegisterEffect,       // answers 516
  Layer,                // the effect's layer: answers 516
  Effect,               // a reference to the effect itself: answers 516
  DisposeEffect,        // answers 516, but the reference is disposed
  Stream,               // a new stream: answers 516
  StreamValue,          // answers 516
  DisposeStream,        // answers 516, but the stream is disposed
  DisposeStreamValue,   // answers 516, but the value is disposed
  StreamFlag,           // answers 516, no flag changes
  StreamName,           // answers 516, the name stays
  Mask,                 // the layer's masks and their identifiers: answers 516
  DisposeMask,          // answers 516, but the mask is disposed
  Path,                 // the layer's paths, a check-out, the inverted flag: answers 516
  CheckinPath,          // answers 516, but the check-in counts
  DrawPath,             // answers 516, nothing is drawn
  Fill,                 // answers 516, nothing is filled
  UpdateParamUi,        // answers 516
  RefreshWindows,       // answers 516
  ExecuteScript,        // answers 516, nothing is run
  DrawingReference,     // for a custom control: answers 516
  Drawbot,              // supplier and surface of a drawing: answers kSPBadParameterError
  NewImage,             // answers kSPBadParameterError
  DrawImage,            // answers kSPBadParameterError, nothing is drawn
  ReleaseObject,        // answers kSPBadParameterError, but the release counts
  LockMemory,           // of a script's result: answers 516, nothing is locked
  UnlockMemory,         // answers 516, but the unlock counts
  FreeMemory,           // answers 516, but the memory is freed
  Abort,                // abort and progress: answers 517
  Count_,
};

// A call that was counted while calls were listed.
struct ListedCall {
  HostCall kind;
  std::string what;      // the function and what it was asked for, such as "AcquireSuite \"PF World Suite\" 2"
  std::string selector;  // the call into the effect that it came from

  bool operator==(const ListedCall&) const = default;
};

// Decides which host calls fail, and counts them all. Calls that give something back still do their work when they
// fail, and a set-down that fails with a failed call is forgiven its handle, so that a failure never forces a leak.
// Thread-safe; the count of concurrent calls is in the order of arrival.
//
//   for (std::size_t k = 0;; ++k) {
//     host.faults().failAt(k);
//     ... one command ...
//     if (!host.faults().struck()) break;   // fewer than k + 1 calls: the sweep is complete
//   }
class FaultPlan {
 public:
  // From now on the k-th call (from 0) fails, of every class or of one; all counts restart at 0.
  void failAt(std::size_t k);
  void failAt(HostCall call, std::size_t k);
  // Every call of the class fails. Counts restart at 0.
  void failAlways(HostCall call);
  // Nothing fails. Counts restart at 0.
  void failNever();
  // The same, and keeps a list of the calls: the k-th of it is what failAt(k) makes fail when all goes alike.
  void list();
  [[nodiscard]] std::vector<ListedCall> listed() const;

  // Failing calls that answer with a code answer with this one instead of their own, in all plans to come; 0: with
  // their own. It tells an effect that passes the host's answer on from one that has an answer of its own.
  void answerWith(PF_Err code);

  [[nodiscard]] bool struck() const;  // whether a call was failed since the plan was set
  [[nodiscard]] std::size_t count() const;
  [[nodiscard]] std::size_t count(HostCall call) const;

  // For the services: counts one call and tells whether it has to fail.
  [[nodiscard]] bool strikes(HostCall call, std::string what = {});
  // The same for a call that answers with a code: 0, or what to answer.
  [[nodiscard]] PF_Err refusal(HostCall call, std::string what = {}, PF_Err own = PF_Err_BAD_CALLBACK_PARAM);

 private:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
  void restart(std::optional<HostCall> call, std::size_t k, bool always);

  mutable std::mutex mutex_;
  std::optional<HostCall> call_;
  std::size_t k_ = kNever;
  bool always_ = false;
  bool struck_ = false;
  bool listing_ = false;
  PF_Err answer_ = PF_Err_NONE;
  std::vector<ListedCall> listed_;
  std::size_t total_ = 0;
  std::array<std::size_t, static_cast<std::size_t>(HostCall::Count_)> counts_{};
};

}  // namespace quiltor::standalone
