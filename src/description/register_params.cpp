#include "description/register_params.h"

#include <string>
#include <string_view>

#include "description/host_definition.h"
#include "description/language/text_pieces.h"
#include "host/suite_handler.h"

namespace quiltor {
namespace {

constexpr PF_ParamIndex kAppend = -1;

}  // namespace

HostErr registerParameters(const Description& description, PF_InData& in, PF_OutData& out) {
  SuiteHandler suites(in.pica_basicP);
  bool hasCustomControl = false;
  for (int32_t index = 1; index < description.paramCount; ++index) {
    const ParamRecord& param = description.params[static_cast<size_t>(index)];
    if (param.kind == ParamKind::None) continue;
    const std::string text = hostText(param);
    PF_ParamDef definition = hostDefinition(param, text.c_str(), in.appl_id);
    const std::string name(cutToBytes(param.displayName, PF_MAX_EFFECT_PARAM_NAME_LEN));
    suites.ansi().strcpy(definition.name, name.c_str());
    const HostErr failure = in.inter.add_param(in.effect_ref, kAppend, &definition);
    if (failure != PF_Err_NONE) return failure;
    if (param.kind == ParamKind::Custom) hasCustomControl = true;
  }

  HostErr result = PF_Err_NONE;
  if (hasCustomControl) {
    PF_CustomUIInfo controls{};
    controls.events = PF_CustomEFlag_EFFECT;
    result = in.inter.register_ui(in.effect_ref, &controls);
  }
  out.num_params = description.paramCount;
  return result;
}

}  // namespace quiltor
