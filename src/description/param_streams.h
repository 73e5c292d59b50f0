#pragma once

#include <cstdint>
#include <string>

#include "host/scoped_suite.h"
#include "hostapi/suites_aegp.h"

namespace quiltor {

// The streams of the effect's own parameters in the compositing host. Where the host lacks one of the suites, or
// refuses a call, nothing happens: nobody is to be told. Main thread only.
class ParamStreams {
 public:
  ParamStreams(const PF_InData& in, AEGP_PluginID pluginId);
  ~ParamStreams();
  ParamStreams(const ParamStreams&) = delete;
  ParamStreams& operator=(const ParamStreams&) = delete;

  // AEGP_DynStreamFlag_HIDDEN or AEGP_DynStreamFlag_DISABLED. Not a step that the user can undo.
  void setFlag(int32_t index, AEGP_DynStreamFlags flag, bool set) const;
  void setName(int32_t index, const std::string& name) const;

 private:
  template <class Use>
  void withStream(int32_t index, Use use) const;

  // Released after the reference is disposed.
  ScopedSuite<AEGP_PFInterfaceSuite1> effects_;
  ScopedSuite<AEGP_EffectSuite2> references_;
  ScopedSuite<AEGP_StreamSuite2> streams_;
  ScopedSuite<AEGP_DynamicStreamSuite2> flags_;
  AEGP_PluginID pluginId_;
  AEGP_EffectRefH effect_ = nullptr;
};

}  // namespace quiltor
