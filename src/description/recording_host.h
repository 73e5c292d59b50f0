#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "hostapi/suites_pf.h"

namespace quiltor {

// For tests: a host at parameter setup that writes down what is registered with it. It offers one suite, the one that
// copies strings. One at a time, because the host's table of suites carries no reference to it.
class RecordingHost {
 public:
  struct Added {
    PF_ParamDef definition;
    PF_ParamIndex index;
    std::string text;  // of a popup, checkbox or button, copied as a host copies it
  };

  explicit RecordingHost(A_AppID appId = kAppId_AfterEffects) {
    current = this;
    in.effect_ref = reinterpret_cast<PF_ProgPtr>(this);
    in.appl_id = appId;
    in.inter.add_param = addParam;
    in.inter.register_ui = registerUi;
    in.pica_basicP = &basic_;
    basic_.AcquireSuite = acquireSuite;
    basic_.ReleaseSuite = releaseSuite;
    ansi_.strcpy = [](A_char* to, const A_char* from) { return std::strcpy(to, from); };
    out.num_params = -1;
  }
  ~RecordingHost() { current = nullptr; }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  PF_InData in{};
  PF_OutData out{};
  std::vector<Added> added;
  std::vector<PF_CustomUIInfo> customUis;
  int acquired = 0;
  int released = 0;
  bool offersSuites = true;
  size_t failingAdd = SIZE_MAX;  // the add that fails, counted from 0
  PF_Err addFailure = PF_Err_NONE;
  PF_Err customUiFailure = PF_Err_NONE;

 private:
  static std::string textOf(const PF_ParamDef& definition) {
    const char* text = nullptr;
    if (definition.param_type == PF_Param_POPUP) text = definition.u.pd.u.namesptr;
    if (definition.param_type == PF_Param_CHECKBOX) text = definition.u.bd.u.nameptr;
    if (definition.param_type == PF_Param_BUTTON) text = definition.u.button_d.u.namesptr;
    return text ? text : "";
  }

  static PF_Err addParam(PF_ProgPtr effect, PF_ParamIndex index, PF_ParamDefPtr definition) {
    auto& host = *reinterpret_cast<RecordingHost*>(effect);
    if (host.added.size() == host.failingAdd) return host.addFailure;
    host.added.push_back({*definition, index, textOf(*definition)});
    return PF_Err_NONE;
  }

  static PF_Err registerUi(PF_ProgPtr effect, PF_CustomUIInfo* info) {
    auto& host = *reinterpret_cast<RecordingHost*>(effect);
    host.customUis.push_back(*info);
    return host.customUiFailure;
  }

  static SPErr acquireSuite(const char* name, int32_t version, const void** suite) {
    const bool known = std::strcmp(name, kPFANSISuite) == 0 && version == kPFANSISuiteVersion1;
    if (!known || !current->offersSuites) return kSPSuiteNotFoundError;
    ++current->acquired;
    *suite = &current->ansi_;
    return kSPNoError;
  }

  static SPErr releaseSuite(const char*, int32_t) {
    ++current->released;
    return kSPNoError;
  }

  inline static RecordingHost* current = nullptr;
  SPBasicSuite basic_{};
  PF_ANSICallbacksSuite1 ansi_{};
};

}  // namespace quiltor
