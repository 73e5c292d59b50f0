#include "description/language/param_keys.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "description/language/numbers.h"
#include "description/language/text_pieces.h"

namespace quiltor {
namespace {

// Flags from here on, with either sign, are special codes.
constexpr int64_t kFirstSpecial = 901;

constexpr std::string_view kGroup = "group";

struct Keyword {
  std::string_view name;
  ParamKind kind;
};

constexpr Keyword kKeywords[] = {
    {"none", ParamKind::None},          {"int", ParamKind::Int},       {"check", ParamKind::Check},
    {"bool", ParamKind::Check},         {"popup", ParamKind::Popup},   {"select", ParamKind::Popup},
    {"layer", ParamKind::Layer},        {"float", ParamKind::Float},   {"color", ParamKind::Color},
    {"angle", ParamKind::Angle},        {"point", ParamKind::Point},   {"topic_start", ParamKind::TopicStart},
    {"topic_end", ParamKind::TopicEnd}, {"custom", ParamKind::Custom}, {"button", ParamKind::Button},
    {"vec2", ParamKind::Vec2},          {"vec3", ParamKind::Vec3},     {"text", ParamKind::Text},
};

int32_t componentsOf(const ParamRecord& param) {
  switch (param.kind) {
    case ParamKind::Vec2:
    case ParamKind::Point:
      return 2;
    case ParamKind::Vec3:
    case ParamKind::Color:
      return 3;
    case ParamKind::Layer:
      return 0;
    case ParamKind::Popup:
      return param.flags >= 1 ? 0 : 1;
    default:
      return 1;
  }
}

void splitText(ParamRecord& param) {
  param.popupItems.clear();
  if (param.popupText.empty()) return;
  if (param.kind == ParamKind::Text) param.popupItems.push_back(param.popupText);
  if (param.kind != ParamKind::Popup) return;
  for (const std::string_view item : splitAt(param.popupText, '|')) param.popupItems.emplace_back(item);
}

void storeText(ParamRecord& param, std::string_view value) {
  param.popupText = value;
  splitText(param);
}

void storeKind(ParamRecord& param, std::string_view value) {
  const std::string name = lowerCased(value);
  const auto* keyword =
      std::find_if(std::begin(kKeywords), std::end(kKeywords), [&](const Keyword& k) { return k.name == name; });
  if (keyword == std::end(kKeywords)) return;
  param.kind = keyword->kind;
  param.components = componentsOf(param);
  splitText(param);
}

void storeFlags(ParamRecord& param, std::string_view value) {
  const int32_t flags = readInteger(value);
  (std::abs(int64_t{flags}) < kFirstSpecial ? param.flags : param.special) = flags;
  param.components = componentsOf(param);
}

void storeDefault(ParamRecord& param, std::string_view value) {
  if (param.kind == ParamKind::Text) {
    storeText(param, value);
  } else {
    param.defaultValue = readValue(value);
  }
  param.currentValue = param.defaultValue;
}

void nameIfNameless(ParamRecord& param, std::string_view value) {
  if (param.paramName.empty()) param.paramName = value;
}

void storeParamName(ParamRecord& param, std::string_view value) {
  param.paramName = value;
  if (param.displayName.empty() || param.displayName == "par") param.displayName = value;
}

void storeDisplayName(ParamRecord& param, std::string_view value) {
  param.displayName = value;
  nameIfNameless(param, value);
}

struct Key {
  std::string_view name;
  void (*store)(ParamRecord& param, std::string_view value);
};

constexpr Key kKeys[] = {
    {"type", storeKind},
    {"param", storeParamName},
    {"display", storeDisplayName},
    {"name", storeDisplayName},
    {"name0", storeDisplayName},
    {"name1", [](ParamRecord& param, std::string_view value) { param.alternateNames[0] = value; }},
    {"name2", [](ParamRecord& param, std::string_view value) { param.alternateNames[1] = value; }},
    {"name3", [](ParamRecord& param, std::string_view value) { param.alternateNames[2] = value; }},
    {"name4", [](ParamRecord& param, std::string_view value) { param.alternateNames[3] = value; }},
    {"text", storeText},
    {"popup", storeText},
    {"visibility", [](ParamRecord& param, std::string_view value) { param.visibility = readInteger(value); }},
    {"default", storeDefault},
    {"time", [](ParamRecord& param, std::string_view value) { param.defaultValue[0] = readFloat(value); }},
    {"min", [](ParamRecord& param, std::string_view value) { param.minimum = readFloat(value); }},
    {"max", [](ParamRecord& param, std::string_view value) { param.maximum = readFloat(value); }},
    {"displaymin", [](ParamRecord& param, std::string_view value) { param.displayMinimum = readFloat(value); }},
    {"displaymax", [](ParamRecord& param, std::string_view value) { param.displayMaximum = readFloat(value); }},
    {"flags", storeFlags},
    {"special", [](ParamRecord& param, std::string_view value) { param.special = readInteger(value); }},
    {"id", [](ParamRecord& param, std::string_view value) { param.id = readInteger(value); }},
    {"groupswitch",
     [](ParamRecord& param, std::string_view value) {
       param.groups[0] = static_cast<int32_t>(-int64_t{readInteger(value)});
     }},
};

// "group" is slot 0, "group3" is slot 3.
std::optional<size_t> groupSlotOf(std::string_view key) {
  if (!key.starts_with(kGroup)) return std::nullopt;
  const std::string_view number = key.substr(kGroup.size());
  if (number.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  const auto slot = static_cast<size_t>(readInteger(number));
  return slot < kGroupSlots ? std::optional(slot) : std::nullopt;
}

}  // namespace

std::array<float, 4> readValue(std::string_view text) {
  if (text == "true") return {1};
  if (text == "false") return {};
  constexpr size_t kMostNumbers = 3;
  const std::vector<std::string_view> numbers = splitAt(text, '|');
  std::array<float, 4> value{};
  for (size_t i = 0; i < std::min(numbers.size(), kMostNumbers); ++i) value[i] = readFloat(numbers[i]);
  return value;
}

bool storeParamKey(ParamRecord& param, std::string_view key, std::string_view value) {
  if (const std::optional<size_t> slot = groupSlotOf(key)) {
    param.groups[*slot] = readInteger(value);
    return true;
  }
  const auto* known = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const Key& k) { return k.name == key; });
  if (known == std::end(kKeys)) return false;
  known->store(param, value);
  return true;
}

}  // namespace quiltor
