#include "standalone/cli/parameter_value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

#include "standalone/cli/command_error.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/number_text.h"

namespace quiltor::standalone {
namespace {

[[noreturn]] void reject(const Parameter& parameter, std::string_view text, const std::string& expected) {
  throw UsageError(parameter.name + ": \"" + std::string(text) + "\": expected " + expected);
}

bool takePercentSign(std::string_view& text) {
  if (!text.ends_with('%')) return false;
  text.remove_suffix(1);
  return true;
}

double parseWithin(const Parameter& parameter, std::string_view text, double low, double high, bool showsPercent) {
  const std::string expected = "a number from " + formatNumber(low) + " to " + formatNumber(high) +
                               (showsPercent ? ", with or without a percent sign" : "");
  std::string_view digits = text;
  if (takePercentSign(digits) && !showsPercent) reject(parameter, text, expected);
  const auto value = parseNumber(digits);
  if (!value || *value < low || *value > high) reject(parameter, text, expected);
  return *value;
}

double parseAngle(const Parameter& parameter, std::string_view text) {
  // Angles travel as 16.16 fixed point.
  constexpr double kLimit = 32767;
  const auto value = parseNumber(text);
  if (!value || std::abs(*value) > kLimit) reject(parameter, text, "degrees, such as 30 or -12.5");
  return *value;
}

bool parseSwitch(const Parameter& parameter, std::string_view text) {
  for (const std::string_view on : {"on", "yes", "true", "1"}) {
    if (sameName(text, on)) return true;
  }
  for (const std::string_view off : {"off", "no", "false", "0"}) {
    if (sameName(text, off)) return false;
  }
  reject(parameter, text, "on or off");
}

ChosenItem parseItem(const Parameter& parameter, std::string_view text) {
  const std::vector<std::string> items = parameter.items();
  // The host draws items that start with "(" as separators; nobody can choose them.
  const auto choosable = [](const std::string& item) { return !item.starts_with('('); };
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (choosable(items[i]) && sameName(items[i], text)) return {static_cast<int>(i + 1)};
  }
  const auto number = parseNumber(text);
  const auto count = static_cast<double>(items.size());
  if (number && *number >= 1 && *number <= count && std::floor(*number) == *number &&
      choosable(items[static_cast<std::size_t>(*number) - 1])) {
    return {static_cast<int>(*number)};
  }
  std::string names;
  for (const std::string& item : items) {
    if (choosable(item)) names += (names.empty() ? "" : ", ") + item;
  }
  const std::string near = suggestion(text, items);
  reject(parameter, text,
         near.empty() ? "one of " + names + ", or a number from 1 to " + std::to_string(items.size())
                      : "the name or number of an item" + near);
}

PF_Pixel parseColor(const Parameter& parameter, std::string_view text) {
  constexpr std::string_view kExpected = "a colour such as #49bc38";
  if (text.size() != 7 || text.front() != '#') reject(parameter, text, std::string(kExpected));
  std::array<uint8_t, 3> channels{};
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const char* const digits = text.data() + 1 + 2 * i;
    const auto [stop, error] = std::from_chars(digits, digits + 2, channels[i], 16);
    if (error != std::errc() || stop != digits + 2) reject(parameter, text, std::string(kExpected));
  }
  return {.alpha = 255, .red = channels[0], .green = channels[1], .blue = channels[2]};
}

PointValue parsePoint(const Parameter& parameter, std::string_view text) {
  const auto comma = text.find(',');
  if (comma != std::string_view::npos) {
    std::string_view first = text.substr(0, comma), second = text.substr(comma + 1);
    const bool percent = takePercentSign(first);
    const bool secondPercent = takePercentSign(second);
    const auto x = parseNumber(first), y = parseNumber(second);
    // Points travel as 16.16 fixed point.
    constexpr double kLimit = 32767;
    if (x && y && percent == secondPercent && std::abs(*x) <= kLimit && std::abs(*y) <= kLimit) {
      return {*x, *y, percent};
    }
  }
  reject(parameter, text, "a point such as 50%,50% of the layer or 960,540 in pixels");
}

ChosenMask parseMask(const Parameter& parameter, std::string_view text, std::span<const int32_t> masks) {
  if (sameName(text, "none")) return {0};
  const auto number = parseNumber(text);
  std::string known;
  for (const int32_t id : masks) {
    if (number == static_cast<double>(id)) return {id};
    known += (known.empty() ? "" : ", ") + std::to_string(id);
  }
  reject(parameter, text,
         known.empty() ? "none; the masks that could be chosen are given with --masks FILE"
                       : "none, or the id of a mask of the file: " + known);
}

}  // namespace

ParameterValue parseParameterValue(const Parameter& parameter, std::string_view text, std::span<const int32_t> masks) {
  const PF_ParamDefUnion& u = parameter.definition.u;
  switch (parameter.definition.param_type) {
    case PF_Param_SLIDER:
      return parseWithin(parameter, text, u.sd.valid_min, u.sd.valid_max, false);
    case PF_Param_FLOAT_SLIDER:
      return parseWithin(parameter, text, u.fs_d.valid_min, u.fs_d.valid_max,
                         (u.fs_d.display_flags & PF_ValueDisplayFlag_PERCENT) != 0);
    case PF_Param_ANGLE:
      return parseAngle(parameter, text);
    case PF_Param_CHECKBOX:
      return parseSwitch(parameter, text);
    case PF_Param_POPUP:
      return parseItem(parameter, text);
    case PF_Param_COLOR:
      return parseColor(parameter, text);
    case PF_Param_POINT:
      return parsePoint(parameter, text);
    case PF_Param_LAYER:
      throw UsageError(parameter.name + ": is a layer; give its picture with --pattern-layer FILE");
    case PF_Param_ARBITRARY_DATA:
      throw UsageError(parameter.name + ": is the effect's own control; give its picture with --pattern FILE");
    case PF_Param_PATH:
      return parseMask(parameter, text, masks);
    default:
      throw UsageError(parameter.name + ": has no value that could be set");
  }
}

}  // namespace quiltor::standalone
