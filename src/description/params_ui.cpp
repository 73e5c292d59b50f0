#include "description/params_ui.h"

#include <cstdlib>
#include <optional>
#include <string>

#include "description/group_switches.h"
#include "description/language/text_pieces.h"
#include "description/param_streams.h"
#include "host/application.h"
#include "host/global_data.h"
#include "host/live_sequence.h"
#include "hostapi/suites_pf.h"
#include "library/files/text_pieces.h"

namespace quiltor {
namespace {

// Stands in the display name of a text parameter for its text.
constexpr std::string_view kTextPlaceholder = "#TEXT";
constexpr int32_t kRegisteredInvisible = 2;

PF_ParamUIFlags withFlag(PF_ParamUIFlags flags, PF_ParamUIFlags flag, bool set) {
  return set ? flags | flag : flags & ~flag;
}

// Gives the host new definitions of parameters, which differ in their flags alone.
class ParamDefinitions {
 public:
  ParamDefinitions(const PF_InData& in, PF_ParamDef** params)
      : in_(in), params_(params), utils_(in.pica_basicP, kPFParamUtilsSuite, kPFParamUtilsSuiteVersion3) {}

  // The flags that the host has now, of which only those that are named change.
  void update(int32_t index, std::optional<bool> invisible, std::optional<bool> disabled) const {
    if (!utils_ || !params_[index]) return;
    PF_ParamDef definition = *params_[index];
    // What the user has just changed is marked there, and no value changes here.
    definition.uu.change_flags = 0;
    if (invisible) definition.ui_flags = withFlag(definition.ui_flags, PF_PUI_INVISIBLE, *invisible);
    if (disabled) definition.ui_flags = withFlag(definition.ui_flags, PF_PUI_DISABLED, *disabled);
    utils_->PF_UpdateParamUI(in_.effect_ref, index, &definition);
  }

 private:
  const PF_InData& in_;
  PF_ParamDef** params_;
  ScopedSuite<PF_ParamUtilsSuite3> utils_;
};

void setStreamFlags(const ParamStreams& streams, const GovernedParam& param) {
  if (param.hidden) streams.setFlag(param.index, AEGP_DynStreamFlag_HIDDEN, *param.hidden);
  // Hosts are known to refuse this one; the definition's flag is what greys the parameter.
  if (param.disabled) streams.setFlag(param.index, AEGP_DynStreamFlag_DISABLED, *param.disabled);
}

// A parameter that was registered invisible is not shown by its stream alone.
std::optional<bool> invisibleBesideStream(const ParamRecord& record, const GovernedParam& param) {
  const bool comesToLight = record.visibility == kRegisteredInvisible && param.hidden == false;
  return comesToLight ? std::optional(false) : std::nullopt;
}

// Nothing when the name of the parameter does not depend on its text.
std::optional<std::string> nameFromText(const ParamRecord& record, const SequenceData& live) {
  const int64_t slot = std::abs(int64_t{record.special});
  if (record.kind != ParamKind::Text || slot >= kTextSlots) return std::nullopt;
  if (record.displayName.find(kTextPlaceholder) == std::string::npos) return std::nullopt;
  const std::string name = replaceAll(record.displayName, kTextPlaceholder, live.text[slot]);
  return std::string(cutToBytes(name, PF_MAX_EFFECT_PARAM_NAME_LEN));
}

AEGP_PluginID pluginIdOf(const PF_InData& in, const PF_HandleSuite1& handles) {
  const HandleLock lock(handles, in.global_data);
  return lock ? static_cast<AEGP_PluginID>(lock.as<const GlobalData>()->pluginId) : 0;
}

}  // namespace

void updateParamsUi(const Description& description, SuiteHandler& suites, const PF_InData& in, PF_ParamDef** params,
                    SequenceData* live, PanelRights rights) {
  const std::vector<GovernedParam> governed = governedParams(description, params, in.num_params);
  if (live) {
    for (const GovernedParam& param : governed) live->visibility[param.index] = param.state;
  }

  std::optional<ParamStreams> streams;
  std::optional<ParamDefinitions> definitions;
  if (!isVideoEditor(in)) streams.emplace(in, pluginIdOf(in, suites.handles()));
  if (rights == PanelRights::Definitions) definitions.emplace(in, params);
  for (const GovernedParam& param : governed) {
    if (param.index >= in.num_params) continue;
    std::optional<bool> invisible = param.hidden;
    if (streams) {
      setStreamFlags(*streams, param);
      invisible = invisibleBesideStream(description.params[static_cast<size_t>(param.index)], param);
    }
    if (definitions && (invisible || param.disabled)) definitions->update(param.index, invisible, param.disabled);
  }

  if (!streams || !live) return;
  for (int32_t index = 1; index < description.paramCount && index < in.num_params; ++index) {
    const auto name = nameFromText(description.params[static_cast<size_t>(index)], *live);
    if (name) streams->setName(index, *name);
  }
}

HostErr paramsUiChanged(const Description& description, const PF_InData& in, PF_ParamDef** params) {
  SuiteHandler suites(in.pica_basicP);
  const LiveSequence live(suites.handles(), in.sequence_data);
  updateParamsUi(description, suites, in, params, live.get(), PanelRights::Definitions);
  return PF_Err_NONE;
}

}  // namespace quiltor
