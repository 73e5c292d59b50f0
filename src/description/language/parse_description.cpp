#include "description/language/parse_description.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <string>

#include "description/language/numbers.h"
#include "description/language/param_keys.h"
#include "description/language/settings_keys.h"
#include "description/language/text_pieces.h"

namespace quiltor {
namespace {

// The rest of a header after a word, "7" for "script7" and "script"; nothing when the header begins otherwise.
std::optional<std::string_view> restAfter(std::string_view word, std::string_view header) {
  if (!header.starts_with(word)) return std::nullopt;
  return header.substr(word.size());
}

bool beginsWithDigit(std::string_view text) { return !text.empty() && text[0] >= '0' && text[0] <= '9'; }

class Parser {
 public:
  explicit Parser(Description& description) : description_(description) {
    ParamRecord& input = description_.params[0];
    input.paramName = "in0";
    input.displayName = "Source";
    input.kind = ParamKind::Layer;
    input.components = 0;
  }

  void readText(std::string_view text) {
    while (!text.empty()) {
      const size_t end = text.find('\n');
      readLine(text.substr(0, end));
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
  }

  void finish() {
    giveMaxima();
    giveIds();
    for (ParamRecord& param : description_.params) {
      if (param.displayMinimum != param.displayMaximum) continue;
      param.displayMinimum = param.minimum;
      param.displayMaximum = param.maximum;
    }
    countLayers();
    DescriptionSettings& settings = description_.settings;
    if (settings.uniqueId.empty()) settings.uniqueId = settings.name;
  }

 private:
  enum class Section { Unknown, Param, Settings, Verbatim, Preset };

  void readLine(std::string_view whole) {
    const std::string_view line = trimmed(whole);
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      section_ = Section::Unknown;
      readHeader(trimmed(line.substr(1, line.size() - 2)));
    } else if (section_ == Section::Verbatim) {
      // Source code keeps its indentation, its empty lines and the lines that would be comments elsewhere.
      readVerbatim(whole);
    } else if (!line.empty() && line.front() != ';' && line.front() != '/') {
      const size_t equals = line.find('=');
      const std::string_view value = equals == std::string_view::npos ? "" : line.substr(equals + 1);
      readKey(lowerCased(trimmed(line.substr(0, equals))), trimmed(value));
    }
  }

  void readHeader(std::string_view header) {
    if (header == "settings") {
      section_ = Section::Settings;
    } else if (header == "vs") {
      startVerbatim(description_.vertexSource, description_.vertexSource.empty());
    } else if (const auto script = restAfter("script", header)) {
      startNumberedSource(description_.scripts, *script);
    } else if (const auto preset = restAfter("preset", header)) {
      startPreset(*preset);
    } else if (const auto param = restAfter("par", header)) {
      startParam(*param);
    } else if (const auto pixelSource = restAfter("ps", header)) {
      startNumberedSource(description_.pixelSources, *pixelSource);
    }
  }

  void startParam(std::string_view number) {
    if (number.empty()) {
      ++paramIndex_;
    } else if (beginsWithDigit(number)) {
      // Deliberate: two digits are read and no more, so "[par123]" is parameter 12.
      paramIndex_ = readInteger(number.substr(0, 2));
    } else {
      return;
    }
    // The sections that the table has no room for are read over.
    paramIndex_ = std::min(paramIndex_, static_cast<int32_t>(kMaxParams));
    if (paramIndex_ < static_cast<int32_t>(kMaxParams)) section_ = Section::Param;
  }

  void startNumberedSource(std::map<int32_t, std::string>& sources, std::string_view number) {
    if (!beginsWithDigit(number)) return;
    const auto [entry, isNew] = sources.try_emplace(readInteger(number));
    startVerbatim(entry->second, isNew);
  }

  void startVerbatim(std::string& source, bool isNew) {
    section_ = Section::Verbatim;
    source_ = &source;
    sourceIsEmpty_ = isNew;
  }

  void startPreset(std::string_view numberAndName) {
    const size_t underscore = numberAndName.find('_');
    if (!beginsWithDigit(numberAndName) || underscore == std::string_view::npos) return;
    const std::string_view name = numberAndName.substr(underscore + 1);
    const auto& params = description_.params;
    const auto named = std::find_if(params.begin(), params.end(),
                                    [&](const ParamRecord& p) { return !p.paramName.empty() && p.paramName == name; });
    if (named == params.end()) return;
    section_ = Section::Preset;
    description_.presets.push_back(
        {readInteger(numberAndName), static_cast<int32_t>(named - params.begin()), named->defaultValue});
  }

  void readVerbatim(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!sourceIsEmpty_) *source_ += '\n';
    *source_ += line;
    sourceIsEmpty_ = false;
  }

  void readKey(std::string_view key, std::string_view value) {
    if (section_ == Section::Param) readParamKey(key, value);
    if (section_ == Section::Settings) storeSetting(description_.settings, key, value);
    if (section_ == Section::Preset && key == "default") description_.presets.back().value = readValue(value);
  }

  void readParamKey(std::string_view key, std::string_view value) {
    const auto index = static_cast<size_t>(paramIndex_);
    if (!storeParamKey(description_.params[index], key, value)) return;
    description_.paramCount = std::max(description_.paramCount, paramIndex_ + 1);
    if (key == "max") hasMaximum_.set(index);
  }

  // A popup counts its items from 0, so without a word from the text the last item is its maximum.
  void giveMaxima() {
    for (size_t i = 0; i < kMaxParams; ++i) {
      ParamRecord& param = description_.params[i];
      if (param.kind == ParamKind::Popup && !param.popupItems.empty() && !hasMaximum_[i]) {
        param.maximum = static_cast<float>(param.popupItems.size() - 1);
      }
    }
  }

  void giveIds() {
    int64_t id = description_.settings.idOffset;
    for (size_t i = 1; i < kMaxParams; ++i) {
      ParamRecord& param = description_.params[i];
      if (param.id < 0) param.id = static_cast<int32_t>(++id);
    }
  }

  void countLayers() {
    const auto& params = description_.params;
    const auto layers = std::count_if(params.begin() + 1, params.end(),
                                      [](const ParamRecord& param) { return param.kind == ParamKind::Layer; });
    description_.layerCount = std::min(static_cast<int32_t>(layers), kMaxLayers);
  }

  Description& description_;
  Section section_ = Section::Unknown;
  int32_t paramIndex_ = -1;
  std::string* source_ = nullptr;
  bool sourceIsEmpty_ = true;
  std::bitset<kMaxParams> hasMaximum_;
};

}  // namespace

Description parseDescription(std::string_view text, const IncludeReader& readInclude) {
  Description description;
  Parser parser(description);
  try {
    parser.readText(expandIncludes(text, readInclude));
    parser.finish();
  } catch (...) {
    // What was read so far is the result: a host without some of its parameters is better than no effect at all.
  }
  return description;
}

}  // namespace quiltor
