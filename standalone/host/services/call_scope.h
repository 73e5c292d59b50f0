#pragma once

#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "hostapi/custom_ui.h"
#include "hostapi/params.h"
#include "standalone/host/services/panel.h"

namespace quiltor::standalone {

class Drawing;

using SuiteId = std::pair<std::string, int>;

// "PF World Suite" 2, with the quotation marks.
[[nodiscard]] std::string nameOf(const SuiteId& suite);

// One call into an effect, as long as it lasts. Its address is the effect reference that the effect gets, so that every
// host function knows the call it belongs to.
class CallScope {
 public:
  CallScope(std::string selector, const void* effect) : selector_(std::move(selector)), effect_(effect) {}
  virtual ~CallScope() = default;
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;

  [[nodiscard]] const std::string& selector() const { return selector_; }
  // Tells effects apart; null for calls of the host itself.
  [[nodiscard]] const void* effect() const { return effect_; }
  [[nodiscard]] PF_ProgPtr reference() { return reinterpret_cast<PF_ProgPtr>(this); }

  // Acquires minus releases, and locks minus unlocks, of this call alone. Guarded by the services that count them.
  std::map<SuiteId, int> suites;
  std::map<PF_Handle, int> locks;
  // The instance's panel and what the call may do to it. Null where there is no instance.
  Panel* panel = nullptr;
  PanelAccess panelAccess = PanelAccess::None;
  // The pane of an event, and the drawing of a draw event.
  PF_ContextH context = nullptr;
  Drawing* drawing = nullptr;

 private:
  std::string selector_;
  const void* effect_;
};

// Makes the calling thread work for a call until the object goes. Iterate's threads work for the call that iterates.
class EnterCall {
 public:
  explicit EnterCall(CallScope* call, int threadIndex = 0);
  ~EnterCall();
  EnterCall(const EnterCall&) = delete;
  EnterCall& operator=(const EnterCall&) = delete;

 private:
  CallScope* previousCall_;
  int previousIndex_;
};

// Null on threads of the effect's own and outside calls.
[[nodiscard]] CallScope* currentCall();
[[nodiscard]] int currentThreadIndex();
// "outside a call" where there is none.
[[nodiscard]] std::string currentSelector();

}  // namespace quiltor::standalone
