#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace quiltor {

inline constexpr size_t kMaxParams = 256;
inline constexpr int32_t kMaxLayers = 32;
inline constexpr size_t kGroupSlots = 16;

// What the description calls a parameter; the host has types of its own.
enum class ParamKind : int32_t {
  None = -1,
  Int = 0,
  Check = 1,
  Popup = 2,
  Layer = 3,
  Float = 4,
  Color = 5,
  Angle = 6,
  Point = 7,
  TopicStart = 8,
  TopicEnd = 9,
  Custom = 10,
  Button = 11,
  Vec2 = 12,
  Vec3 = 13,
  Text = 14,
};

// One parameter as the description text states it.
struct ParamRecord {
  std::string paramName;
  std::string popupText;
  std::string displayName;
  std::array<std::string, 4> alternateNames;
  std::vector<std::string> popupItems;  // a popup's text split at "|"; a text parameter's whole text as one item
  int32_t components = 1;               // numbers in a value; 0 for a layer and for a popup with flags
  ParamKind kind = ParamKind::None;
  int32_t visibility = 0;
  std::array<float, 4> defaultValue{};
  std::array<float, 4> currentValue{};
  float minimum = 0;
  float maximum = 0;
  float displayMinimum = 0;
  float displayMaximum = 0;
  std::array<int32_t, kGroupSlots> groups{};  // slot 0 of a switch holds its group, negated
  int32_t flags = 0;
  int32_t special = 0;  // a flags value of 901 or more, which routes the parameter's value instead
  int32_t id = -1;      // negative until the text or the end of parsing gives one
};

// The value that a preset gives to one parameter; the parameter's default where the preset states none.
struct PresetEntry {
  int32_t preset = 0;
  int32_t paramIndex = 0;
  std::array<float, 4> value{};
};

// Identity and integers that the settings section of a description sets.
struct DescriptionSettings {
  std::string name;
  std::string header;
  std::string description = "Draws a pattern over a layer.";  // shown by About
  std::string category;
  std::string uniqueId;
  std::string logo;
  std::string bundleName;
  int32_t versionMajor = 1;
  int32_t versionMinor = 0;
  int32_t versionBug = 0;
  int32_t useGpu = 0;
  int32_t smooth = 0;
  int32_t range = 0;
  int32_t repeat = 0;
  int32_t inFormat = 0;
  int32_t outFormat = 0;
  int32_t outFlags = 0;
  int32_t outFlags2 = 0;
  int32_t pn = 0;
  int32_t idOffset = 0;
  bool noInput = false;
  bool beta = false;
};

// The result of parsing one description text. params[0] is the effect's input layer; paramCount is one more than the
// highest index that received a key.
struct Description {
  DescriptionSettings settings;
  // Always kMaxParams records; on the heap, because the stacks of a host's threads are small.
  std::vector<ParamRecord> params = std::vector<ParamRecord>(kMaxParams);
  int32_t paramCount = 1;
  int32_t layerCount = 0;  // layer parameters at index 1 or above, kMaxLayers at most
  std::map<int32_t, std::string> scripts;
  std::map<int32_t, std::string> pixelSources;
  std::string vertexSource;
  std::vector<PresetEntry> presets;
};

}  // namespace quiltor
