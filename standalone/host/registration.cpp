#include "standalone/host/registration.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quiltor::standalone {
namespace {

bool isKnownType(PF_ParamType type) {
  switch (type) {
    case PF_Param_LAYER:
    case PF_Param_SLIDER:
    case PF_Param_FIX_SLIDER:
    case PF_Param_ANGLE:
    case PF_Param_CHECKBOX:
    case PF_Param_COLOR:
    case PF_Param_POINT:
    case PF_Param_POPUP:
    case PF_Param_FLOAT_SLIDER:
    case PF_Param_ARBITRARY_DATA:
    case PF_Param_PATH:
    case PF_Param_GROUP_START:
    case PF_Param_GROUP_END:
    case PF_Param_BUTTON:
    case PF_Param_POINT_3D:
      return true;
    default:
      return false;
  }
}

// The text pointer of the types that have one.
const A_char** textPointer(PF_ParamDef& definition) {
  switch (definition.param_type) {
    case PF_Param_POPUP:
      return &definition.u.pd.u.namesptr;
    case PF_Param_CHECKBOX:
      return &definition.u.bd.u.nameptr;
    case PF_Param_BUTTON:
      return &definition.u.button_d.u.namesptr;
    default:
      return nullptr;
  }
}

void checkPopup(const Parameter& parameter, const std::string& title, Findings& findings) {
  const PF_PopupDef& popup = parameter.definition.u.pd;
  if (popup.dephault < 1 || popup.dephault > popup.num_choices) {
    findings.record(FindingKind::PopupDefaultOutOfRange, title + " has the default " + std::to_string(popup.dephault) +
                                                             ", expected 1 to " + std::to_string(popup.num_choices));
  }
  const std::size_t items = parameter.items().size();
  if (items != static_cast<std::size_t>(popup.num_choices)) {
    findings.record(FindingKind::PopupItemCountWrong, title + " says that it has " + std::to_string(popup.num_choices) +
                                                          " items and lists " + std::to_string(items));
  }
}

}  // namespace

Parameter Registration::inputLayer() {
  Parameter layer;
  layer.definition.param_type = PF_Param_LAYER;
  layer.definition.u.ld.dephault = PF_LayerDefault_MYSELF;
  return layer;
}

void addParameter(Registration& registration, PF_ParamIndex index, const PF_ParamDef& definition, Findings& findings) {
  Parameter parameter;
  parameter.definition = definition;
  const auto nameEnd = std::find(std::begin(definition.name), std::end(definition.name), '\0');
  parameter.name.assign(std::begin(definition.name), nameEnd);
  const A_char** text = textPointer(parameter.definition);
  if (text && *text) parameter.text = *text;

  const std::string title =
      "parameter " + std::to_string(registration.parameters.size()) + " \"" + parameter.name + "\"";
  if (index != -1) {
    findings.record(FindingKind::AddParamIndexNotAppend,
                    title + " was added at index " + std::to_string(index) + ", expected -1");
  }
  if (!isKnownType(definition.param_type)) {
    findings.record(FindingKind::ParamTypeUnknown, title + " has the type " + std::to_string(definition.param_type));
  }
  if (nameEnd == std::end(definition.name)) {
    findings.record(FindingKind::ParamNameNotTerminated, title + " has a name without an end");
  }
  const auto hasSameId = [&](const Parameter& other) { return other.definition.uu.id == definition.uu.id; };
  if (std::any_of(registration.parameters.begin() + 1, registration.parameters.end(), hasSameId)) {
    findings.record(FindingKind::ParamIdDuplicate,
                    title + " has the id " + std::to_string(definition.uu.id) + " of another parameter");
  }
  if (definition.param_type == PF_Param_POPUP) checkPopup(parameter, title, findings);
  registration.parameters.push_back(std::move(parameter));
}

void pointAtOwnTexts(std::vector<Parameter>& parameters) {
  for (Parameter& parameter : parameters) {
    if (const A_char** text = textPointer(parameter.definition)) *text = parameter.text.c_str();
  }
}

}  // namespace quiltor::standalone
