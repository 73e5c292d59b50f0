#include "description/language/settings_keys.h"

#include <string>
#include <vector>

#include "description/language/numbers.h"
#include "description/language/text_pieces.h"

namespace quiltor {
namespace {

// What the host can show as an effect's name.
constexpr size_t kNameBytes = 31;

template <class Value>
struct Key {
  std::string_view name;
  Value DescriptionSettings::*field;
};

constexpr Key<std::string> kTexts[] = {
    {"header", &DescriptionSettings::header},     {"description", &DescriptionSettings::description},
    {"category", &DescriptionSettings::category}, {"uniqueid", &DescriptionSettings::uniqueId},
    {"logo", &DescriptionSettings::logo},         {"bundlename", &DescriptionSettings::bundleName},
};

constexpr Key<int32_t> kIntegers[] = {
    {"usegpu", &DescriptionSettings::useGpu},      {"smooth", &DescriptionSettings::smooth},
    {"range", &DescriptionSettings::range},        {"repeat", &DescriptionSettings::repeat},
    {"informat", &DescriptionSettings::inFormat},  {"outformat", &DescriptionSettings::outFormat},
    {"outflags", &DescriptionSettings::outFlags},  {"outflags2", &DescriptionSettings::outFlags2},
    {"id_offset", &DescriptionSettings::idOffset}, {"pn", &DescriptionSettings::pn},
};

constexpr Key<bool> kSwitches[] = {
    {"noinput", &DescriptionSettings::noInput},
    {"beta", &DescriptionSettings::beta},
};

void storeVersion(DescriptionSettings& settings, std::string_view value) {
  const std::vector<std::string_view> numbers = splitAt(value, '.');
  const auto number = [&](size_t place) { return place < numbers.size() ? readInteger(numbers[place]) : 0; };
  settings.versionMajor = number(0);
  settings.versionMinor = number(1);
  settings.versionBug = number(2);
}

}  // namespace

void storeSetting(DescriptionSettings& settings, std::string_view key, std::string_view value) {
  if (key == "name") settings.name = cutToBytes(value, kNameBytes);
  if (key == "version") storeVersion(settings, value);
  for (const auto& text : kTexts) {
    if (key == text.name) settings.*text.field = value;
  }
  for (const auto& integer : kIntegers) {
    if (key == integer.name) settings.*integer.field = readInteger(value);
  }
  for (const auto& flag : kSwitches) {
    if (key == flag.name) settings.*flag.field = readInteger(value) > 0;
  }
}

}  // namespace quiltor
