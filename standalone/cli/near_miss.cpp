#include "standalone/cli/near_miss.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quiltor::standalone {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// How many letters have to be added, removed, changed or exchanged with their neighbour.
std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::vector<std::size_t>> cost(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        cost[i][j] = i + j;
        continue;
      }
      const bool same = lower(from[i - 1]) == lower(to[j - 1]);
      cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && lower(from[i - 1]) == lower(to[j - 2]) && lower(from[i - 2]) == lower(to[j - 1])) {
        cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
      }
    }
  }
  return cost[from.size()][to.size()];
}

bool startsWith(std::string_view name, std::string_view start) {
  return !start.empty() && start.size() <= name.size() && sameName(name.substr(0, start.size()), start);
}

}  // namespace

bool sameName(std::string_view first, std::string_view second) {
  return std::ranges::equal(first, second, [](char a, char b) { return lower(a) == lower(b); });
}

std::string suggestion(std::string_view typed, std::span<const std::string> known) {
  const std::string* nearest = nullptr;
  std::size_t least = 0;
  for (const std::string& name : known) {
    // A beginning is as good as one slip: "Soft" means "Soft Light".
    const std::size_t distance = startsWith(name, typed) ? 1 : editDistance(typed, name);
    const bool near = distance <= std::max<std::size_t>(1, name.size() / 3);
    if (near && (!nearest || distance < least)) {
      nearest = &name;
      least = distance;
    }
  }
  return nearest ? "; did you mean \"" + *nearest + "\"?" : "";
}

}  // namespace quiltor::standalone
