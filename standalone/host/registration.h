#pragma once

#include <optional>
#include <vector>

#include "standalone/host/parameter.h"
#include "standalone/host/services/findings.h"

namespace quiltor::standalone {

// What parameter setup collects. Entry 0 is the input layer, which the effect does not add.
struct Registration {
  std::vector<Parameter> parameters = {inputLayer()};
  std::optional<PF_CustomUIInfo> customUi;

  static Parameter inputLayer();
};

// Adds a copy of the effect's definition and records what is wrong with it.
void addParameter(Registration& registration, PF_ParamIndex index, const PF_ParamDef& definition, Findings& findings);

// Lets the definitions point at the texts that lie beside them; the parameters must not move afterwards.
void pointAtOwnTexts(std::vector<Parameter>& parameters);

}  // namespace quiltor::standalone
