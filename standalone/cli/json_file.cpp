#include "standalone/cli/json_file.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/line_text.h"

namespace quiltor::standalone {
namespace {

constexpr std::uintmax_t kLargestFile = 16 * 1024 * 1024;
constexpr std::size_t kDeepestLevel = 16;
constexpr std::size_t kShownCharacters = 80;

// Where the parser is, such as masks[1].id.
class Place {
 public:
  void enter(bool list) { levels_.push_back({.list = list}); }
  void leave() {
    levels_.pop_back();
    passValue();
  }
  void passValue() {
    if (!levels_.empty() && levels_.back().list) ++levels_.back().index;
  }
  // False when the object has had this member before.
  bool passKey(const std::string& key) {
    levels_.back().key = key;
    return levels_.back().keys.insert(key).second;
  }

  [[nodiscard]] std::size_t depth() const { return levels_.size(); }
  [[nodiscard]] std::string text() const {
    std::string all;
    for (const Level& level : levels_) {
      if (level.list) {
        all += "[" + std::to_string(level.index) + "]";
      } else if (!level.key.empty()) {
        all += (all.empty() ? "" : ".") + level.key;
      }
    }
    return shortened(all, kShownCharacters);
  }

 private:
  struct Level {
    bool list = false;
    std::size_t index = 0;
    std::string key = {};
    std::set<std::string> keys = {};
  };
  std::vector<Level> levels_;
};

// The library's own words without the name of its error class and without what it read, which may be any bytes.
std::string reasonOf(const nlohmann::json::exception& error) {
  std::string_view text = error.what();
  for (const std::string_view prefix : {"] ", "parse error at "}) {
    const auto found = text.find(prefix);
    if (found != std::string_view::npos) text.remove_prefix(found + prefix.size());
  }
  return shortened(text.substr(0, text.find("; last read: ")), 2 * kShownCharacters);
}

std::string readWhole(const std::filesystem::path& path, const std::string& expected) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw CommandFailure("cannot read " + utf8FromPath(path) + ": it is no file, expected " + expected);
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw CommandFailure("cannot read " + utf8FromPath(path) + ": no such file or no permission");
  if (std::filesystem::file_size(path, error) > kLargestFile) {
    throw CommandFailure(utf8FromPath(path) + ": is larger than 16 MB, expected " + expected);
  }
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (file.bad()) throw CommandFailure("cannot read " + utf8FromPath(path) + ": reading failed");
  return text;
}

}  // namespace

nlohmann::json readJson(const std::filesystem::path& path, const std::string& expected) {
  using Event = nlohmann::json::parse_event_t;
  const std::string text = readWhole(path, expected);
  Place place;
  const auto follow = [&](int, Event event, const nlohmann::json& parsed) {
    switch (event) {
      case Event::object_start:
      case Event::array_start:
        if (place.depth() == kDeepestLevel) {
          throw CommandFailure(utf8FromPath(path) + ": " + place.text() + ": is nested too deep, expected " + expected);
        }
        place.enter(event == Event::array_start);
        break;
      case Event::object_end:
      case Event::array_end:
        place.leave();
        break;
      case Event::value:
        place.passValue();
        break;
      case Event::key:
        if (!place.passKey(parsed.get<std::string>())) {
          throw CommandFailure(utf8FromPath(path) + ": " + place.text() + ": is there twice, expected it once");
        }
        break;
    }
    return true;
  };
  try {
    return nlohmann::json::parse(text, follow);
  } catch (const nlohmann::json::exception& error) {
    throw CommandFailure(utf8FromPath(path) + ": is no JSON (" + reasonOf(error) + "), expected " + expected);
  }
}

}  // namespace quiltor::standalone
