#include "standalone/host/parameter.h"

namespace quiltor::standalone {

std::vector<std::string> Parameter::items() const {
  std::vector<std::string> all;
  if (definition.param_type != PF_Param_POPUP) return all;
  for (std::size_t start = 0;;) {
    const std::size_t bar = text.find('|', start);
    all.push_back(text.substr(start, bar - start));
    if (bar == std::string::npos) return all;
    start = bar + 1;
  }
}

}  // namespace quiltor::standalone
