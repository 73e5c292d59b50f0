#include "standalone/cli/parameter_lookup.h"

#include <array>
#include <cstddef>
#include <vector>

#include "standalone/cli/command_error.h"
#include "standalone/cli/near_miss.h"

namespace quiltor::standalone {
namespace {

struct NamePair {
  std::string_view shortName;
  std::string_view displayName;
};

// By parameter index. A module whose parameter of that index is called otherwise is another effect.
constexpr std::array<NamePair, 16> kQuiltorNames{{
    {"in0", ""},
    {"source", "Source"},
    {"patsrc", "Pattern Layer"},
    {"txtsrc", "Pattern"},
    {"lock", "Lock Pattern"},
    {"tilemode", "Tile Mode"},
    {"blendmode", "Blend Mode"},
    {"opacity", "Opacity"},
    {"scale", "Scale"},
    {"offset", "Offset"},
    {"rotation", "Rotation"},
    {"invert", "Invert Pattern Colors"},
    {"tintcolor", "Tint Color"},
    {"tintopacity", "Tint Opacity"},
    {"blur", "Blur"},
    {"mask", "Mask"},
}};

}  // namespace

std::string_view shortName(std::span<const Parameter> parameters, std::size_t index) {
  if (index == 0 || index >= kQuiltorNames.size() || index >= parameters.size()) return {};
  const NamePair& names = kQuiltorNames[index];
  return parameters[index].name == names.displayName ? names.shortName : std::string_view{};
}

int findParameter(std::span<const Parameter> parameters, std::string_view name) {
  std::vector<std::string> known;
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    const std::string_view brief = shortName(parameters, i);
    if (!name.empty() && (sameName(brief, name) || sameName(parameters[i].name, name))) return static_cast<int>(i);
    if (!brief.empty()) known.emplace_back(brief);
    if (!parameters[i].name.empty()) known.push_back(parameters[i].name);
  }
  throw UsageError("\"" + std::string(name) + "\": the effect has no parameter of this name" +
                   (suggestion(name, known).empty() ? "; `quiltor params` lists them" : suggestion(name, known)));
}

std::optional<int> ownControl(std::span<const Parameter> parameters) {
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    if ((parameters[i].definition.ui_flags & PF_PUI_CONTROL) != 0) return static_cast<int>(i);
  }
  return std::nullopt;
}

Assignment parseAssignment(std::span<const Parameter> parameters, std::string_view text,
                           std::span<const int32_t> masks) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) {
    throw UsageError("--set: \"" + std::string(text) + "\": expected NAME=VALUE, such as opacity=70%");
  }
  const int index = findParameter(parameters, text.substr(0, equals));
  return {index, parseParameterValue(parameters[static_cast<std::size_t>(index)], text.substr(equals + 1), masks)};
}

}  // namespace quiltor::standalone
