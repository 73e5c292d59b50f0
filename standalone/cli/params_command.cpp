#include "standalone/cli/params_command.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cli/number_text.h"
#include "standalone/cli/parameter_lookup.h"

namespace quiltor::standalone {
namespace {

using Row = std::array<std::string, 5>;
constexpr std::size_t kLastColumn = 4;
constexpr std::size_t kLineWidth = 110;

double fromFixed(PF_Fixed value) { return value / 65536.0; }

std::string hexColor(const PF_Pixel& color) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned channel : {color.red, color.green, color.blue}) {
    text += kDigits[channel / 16];
    text += kDigits[channel % 16];
  }
  return text;
}

std::string rangeText(double low, double high) { return formatNumber(low) + " to " + formatNumber(high); }

// Kind, default, and range or items.
std::array<std::string, 3> describeValue(const Parameter& parameter) {
  const PF_ParamDefUnion& u = parameter.definition.u;
  switch (parameter.definition.param_type) {
    case PF_Param_LAYER:
      return {"layer", "none", "--pattern-layer FILE"};
    case PF_Param_SLIDER:
      return {"slider", formatNumber(u.sd.dephault), rangeText(u.sd.valid_min, u.sd.valid_max)};
    case PF_Param_FLOAT_SLIDER: {
      const std::string unit = (u.fs_d.display_flags & PF_ValueDisplayFlag_PERCENT) != 0 ? "%" : "";
      return {"slider", formatNumber(u.fs_d.dephault) + unit, rangeText(u.fs_d.valid_min, u.fs_d.valid_max) + unit};
    }
    case PF_Param_ANGLE:
      return {"angle", formatNumber(fromFixed(u.ad.dephault)), "degrees"};
    case PF_Param_CHECKBOX:
      return {"check box", u.bd.dephault ? "on" : "off", "on, off"};
    case PF_Param_COLOR:
      return {"colour", hexColor(u.cd.dephault), "#rrggbb"};
    case PF_Param_POINT:
      return {"point", formatNumber(fromFixed(u.td.x_dephault)) + "%," + formatNumber(fromFixed(u.td.y_dephault)) + "%",
              "X%,Y% of the layer, or X,Y in pixels"};
    case PF_Param_POPUP: {
      const std::vector<std::string> items = parameter.items();
      std::string all;
      for (const std::string& item : items) all += (all.empty() ? "" : ", ") + item;
      const auto chosen = static_cast<std::size_t>(u.pd.dephault);
      return {"popup", chosen >= 1 && chosen <= items.size() ? items[chosen - 1] : "?", all};
    }
    case PF_Param_ARBITRARY_DATA:
      return {"control", "-", "--pattern FILE"};
    case PF_Param_PATH:
      return {"mask", "none", "none, or the id of a mask of --masks FILE"};
    case PF_Param_BUTTON:
      return {"button", "-", parameter.text};
    case PF_Param_GROUP_START:
      return {"group", "-", "start"};
    case PF_Param_GROUP_END:
      return {"group", "-", "end"};
    default:
      return {"type " + std::to_string(parameter.definition.param_type), "-", "-"};
  }
}

// Breaks after commas so that no line of the last column passes the width; an item that is longer stays whole.
std::vector<std::string> wrap(const std::string& text, std::size_t width) {
  constexpr std::string_view kBreak = ", ";
  std::vector<std::string> lines{""};
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t found = text.find(kBreak, start);
    const std::size_t end = found == std::string::npos ? text.size() : found + kBreak.size();
    const std::string item = text.substr(start, end - start);
    if (!lines.back().empty() && lines.back().size() + item.size() > width + 1) lines.emplace_back();
    lines.back() += item;
    start = end;
  }
  return lines;
}

std::string trimRight(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace

void printParameters(std::span<const Parameter> parameters, std::ostream& out) {
  std::vector<Row> rows{{"NAME", "DISPLAY NAME", "KIND", "DEFAULT", "VALUES"}};
  for (std::size_t i = 1; i < parameters.size(); ++i) {
    const auto [kind, standard, values] = describeValue(parameters[i]);
    const std::string_view brief = shortName(parameters, i);
    rows.push_back({brief.empty() ? "-" : std::string(brief), parameters[i].name, kind, standard, values});
  }
  std::array<std::size_t, kLastColumn> widths{};
  std::size_t indent = 0;
  for (std::size_t column = 0; column < kLastColumn; ++column) {
    for (const Row& row : rows) widths[column] = std::max(widths[column], row[column].size() + 2);
    indent += widths[column];
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < kLastColumn; ++column) {
      line += row[column] + std::string(widths[column] - row[column].size(), ' ');
    }
    for (const std::string& part : wrap(row[kLastColumn], kLineWidth - std::min(indent, kLineWidth / 2))) {
      out << trimRight(line + part) << '\n';
      line.assign(indent, ' ');
    }
  }
}

void runParams(const SessionOptions& session, std::ostream& out, std::ostream& err) {
  std::vector<Parameter> parameters;
  withEffect(session, {}, err, [&parameters](Effect& effect) { parameters = effect.parameters(); });
  printParameters(parameters, out);
}

}  // namespace quiltor::standalone
