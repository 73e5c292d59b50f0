#pragma once

#include <functional>
#include <string>

#include "hostapi/effect.h"

namespace quiltor::standalone {

// One call into the effect as a test spells it out. Pointers may be null.
struct Call {
  A_long selector = PF_Cmd_ABOUT;
  PF_ParamDef** params = nullptr;
  PF_EffectWorld* output = nullptr;
  void* extra = nullptr;
  // Changes the records after the host has filled them and before the effect sees them.
  std::function<void(PF_InData&, PF_OutData&)> prepare = nullptr;
};

// Both records as the effect left them. Handles in them may be disposed already.
struct CallResult {
  PF_Err code = PF_Err_NONE;
  PF_InData in{};
  PF_OutData out{};
  double seconds = 0;           // from the call to its return
  double processorSeconds = 0;  // of all cores together

  [[nodiscard]] std::string message() const;  // out.return_msg; 255 characters at most
  [[nodiscard]] bool succeeded() const { return code == PF_Err_NONE; }
};

// "PF_Cmd_RENDER", or "selector 77" for a number without a name.
[[nodiscard]] std::string selectorName(A_long selector);

}  // namespace quiltor::standalone
