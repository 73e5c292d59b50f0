#include "standalone/cli/mask_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "base/utf8_path.h"
#include "standalone/cli/command_error.h"
#include "standalone/cli/json_file.h"
#include "standalone/cli/line_text.h"
#include "standalone/cli/near_miss.h"
#include "standalone/cli/number_text.h"

namespace quiltor::standalone {
namespace {

using nlohmann::json;

constexpr double kFarthest = 32767;
constexpr double kWidestFeather = 4000;
constexpr std::size_t kFewestVertices = 2, kMostVertices = 100000;
constexpr std::size_t kShownCharacters = 40;

struct Range {
  double low, high;
  [[nodiscard]] std::string text() const { return formatNumber(low) + " to " + formatNumber(high); }
};

constexpr Range kPlaces{-kFarthest, kFarthest}, kFeathers{0, kWidestFeather};

// A value of the file with its place in it, such as masks[1].id.
class Node {
 public:
  Node(const std::filesystem::path& file, const json& value, std::string place)
      : file_(file), value_(value), place_(std::move(place)) {}

  [[noreturn]] void reject(const std::string& what, const std::string& expected) const {
    const std::string where = place_.empty() ? "" : place_ + ": ";
    throw CommandFailure(utf8FromPath(file_) + ": " + where + what + ", expected " + expected);
  }
  [[noreturn]] void reject(const std::string& expected) const { reject("is " + shown(), expected); }

  [[nodiscard]] const json& value() const { return value_; }
  [[nodiscard]] bool has(const char* member) const { return value_.contains(member); }
  [[nodiscard]] Node at(const char* member, const std::string& expected) const {
    const Node child(file_, has(member) ? value_[member] : value_, (place_.empty() ? "" : place_ + ".") + member);
    if (!has(member)) child.reject("is missing", expected);
    return child;
  }
  [[nodiscard]] Node at(std::size_t index) const {
    return {file_, value_[index], place_ + "[" + std::to_string(index) + "]"};
  }

  void requireObject(const std::vector<std::string>& members, const std::string& expected) const {
    if (!value_.is_object()) reject(expected);
    for (const auto& [name, member] : value_.items()) {
      if (std::ranges::find(members, name) != members.end()) continue;
      std::string known;
      for (const std::string& one : members) known += (known.empty() ? "" : ", ") + standalone::quoted(one);
      reject("has the unknown member " + standalone::quoted(shortened(name, kShownCharacters)),
             (members.size() == 1 ? "" : "one of ") + known + suggestion(name, members));
    }
  }

  [[nodiscard]] double number(const Range& range) const {
    const std::string expected = "a number from " + range.text();
    if (!value_.is_number()) reject(expected);
    const auto number = value_.get<double>();
    if (!(number >= range.low && number <= range.high)) reject(expected);
    return number;
  }
  [[nodiscard]] std::pair<double, double> pair(const Range& range) const {
    if (!value_.is_array() || value_.size() != 2) reject("two numbers from " + range.text() + " such as [40, 20]");
    return {at(0).number(range), at(1).number(range)};
  }

 private:
  [[nodiscard]] std::string shown() const {
    if (value_.is_object()) return "an object";
    if (value_.is_array()) return "a list of " + std::to_string(value_.size());
    return shortened(value_.dump(), kShownCharacters);
  }

  const std::filesystem::path& file_;
  const json& value_;
  std::string place_;
};

PathVertex vertexOf(const Node& node) {
  node.requireObject({"at", "in", "out"}, R"(a vertex such as {"at": [40, 20]})");
  PathVertex vertex;
  std::tie(vertex.x, vertex.y) = node.at("at", "two numbers such as [40, 20]").pair(kPlaces);
  if (node.has("in")) std::tie(vertex.inX, vertex.inY) = node.at("in", "").pair(kPlaces);
  if (node.has("out")) std::tie(vertex.outX, vertex.outY) = node.at("out", "").pair(kPlaces);
  return vertex;
}

Outline verticesOf(const Node& node) {
  const std::size_t count = node.value().size();
  if (!node.value().is_array() || count < kFewestVertices || count > kMostVertices) {
    node.reject("a list of " + std::to_string(kFewestVertices) + " to " + std::to_string(kMostVertices) + " vertices");
  }
  Outline vertices;
  for (std::size_t i = 0; i < count; ++i) vertices.push_back(vertexOf(node.at(i)));
  return vertices;
}

int32_t idOf(const Node& node) {
  constexpr uint64_t kHighest = std::numeric_limits<int32_t>::max();
  const json& value = node.value();
  // Whole numbers below 0 are signed to the library, and those beyond 64 bits are not whole.
  const uint64_t id = value.is_number_unsigned() ? value.get<uint64_t>() : 0;
  if (id < 1 || id > kHighest) node.reject("a whole number from 1 to " + std::to_string(kHighest));
  return static_cast<int32_t>(id);
}

std::pair<double, double> featherOf(const Node& node) {
  if (node.value().is_array()) return node.pair(kFeathers);
  if (!node.value().is_number()) node.reject("a number from " + kFeathers.text() + ", or two such as [10, 4]");
  const double both = node.number(kFeathers);
  return {both, both};
}

bool flagOf(const Node& node) {
  if (!node.value().is_boolean()) node.reject("true or false");
  return node.value().get<bool>();
}

Mask maskOf(const Node& node) {
  node.requireObject({"id", "vertices", "feather", "inverted"}, R"(a mask such as {"id": 1, "vertices": [...]})");
  Mask mask;
  mask.id = idOf(node.at("id", "a whole number that --set names the mask by"));
  mask.vertices = verticesOf(node.at("vertices", "the path's vertices"));
  if (node.has("feather")) std::tie(mask.featherX, mask.featherY) = featherOf(node.at("feather", ""));
  if (node.has("inverted")) mask.inverted = flagOf(node.at("inverted", ""));
  return mask;
}

}  // namespace

std::vector<Mask> readMasks(const std::filesystem::path& path) {
  const std::string expected = R"(masks such as {"masks": [{"id": 1, "vertices": [...]}]})";
  const json content = readJson(path, expected);
  const Node root(path, content, "");
  root.requireObject({"masks"}, expected);
  const Node list = root.at("masks", "a list of masks");
  if (!list.value().is_array() || list.value().empty()) list.reject("a list of one mask at least");
  std::vector<Mask> masks;
  std::set<int32_t> ids;
  for (std::size_t i = 0; i < list.value().size(); ++i) {
    const Node node = list.at(i);
    masks.push_back(maskOf(node));
    if (!ids.insert(masks.back().id).second) node.at("id", "").reject("an identifier that no other mask has");
  }
  return masks;
}

}  // namespace quiltor::standalone
