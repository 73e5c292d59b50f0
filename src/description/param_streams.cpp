#include "description/param_streams.h"

namespace quiltor {

ParamStreams::ParamStreams(const PF_InData& in, AEGP_PluginID pluginId)
    : effects_(in.pica_basicP, kAEGPPFInterfaceSuite, kAEGPPFInterfaceSuiteVersion1),
      references_(in.pica_basicP, kAEGPEffectSuite, kAEGPEffectSuiteVersion2),
      streams_(in.pica_basicP, kAEGPStreamSuite, kAEGPStreamSuiteVersion7),
      flags_(in.pica_basicP, kAEGPDynamicStreamSuite, kAEGPDynamicStreamSuiteVersion2),
      pluginId_(pluginId) {
  if (!effects_ || !references_ || !streams_ || !flags_) return;
  if (effects_->AEGP_GetNewEffectForEffect(pluginId_, in.effect_ref, &effect_) != PF_Err_NONE) effect_ = nullptr;
}

ParamStreams::~ParamStreams() {
  if (effect_) references_->AEGP_DisposeEffect(effect_);
}

template <class Use>
void ParamStreams::withStream(int32_t index, Use use) const {
  AEGP_StreamRefH stream = nullptr;
  if (!effect_) return;
  if (streams_->AEGP_GetNewEffectStreamByIndex(pluginId_, effect_, index, &stream) != PF_Err_NONE || !stream) return;
  use(stream);
  streams_->AEGP_DisposeStream(stream);
}

void ParamStreams::setFlag(int32_t index, AEGP_DynStreamFlags flag, bool set) const {
  withStream(index, [&](AEGP_StreamRefH stream) { flags_->AEGP_SetDynamicStreamFlag(stream, flag, 0, set ? 1 : 0); });
}

void ParamStreams::setName(int32_t index, const std::string& name) const {
  withStream(index, [&](AEGP_StreamRefH stream) { flags_->AEGP_SetStreamName(stream, name.c_str()); });
}

}  // namespace quiltor
