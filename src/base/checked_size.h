#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>

namespace quiltor {

// The product of sizes in 64 bits; nothing when a factor is negative or when the product would not fit into a signed
// 64-bit number, so that a size from a file or from the host can be compared before it is used.
inline std::optional<int64_t> checkedProduct(std::initializer_list<int64_t> factors) {
  int64_t product = 1;
  for (const int64_t factor : factors) {
    if (factor < 0 || (factor > 0 && product > std::numeric_limits<int64_t>::max() / factor)) return std::nullopt;
    product *= factor;
  }
  return product;
}

}  // namespace quiltor
