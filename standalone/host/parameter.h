#pragma once

#include <string>
#include <vector>

#include "hostapi/params.h"

namespace quiltor::standalone {

// A registered parameter. The strings behind the definition's pointers are ours.
struct Parameter {
  PF_ParamDef definition{};
  std::string name;  // the display name
  std::string text;  // popup items, check box label or button label; empty otherwise

  // The items of a popup; separators count as items.
  [[nodiscard]] std::vector<std::string> items() const;
};

}  // namespace quiltor::standalone
