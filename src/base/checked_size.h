#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>

namespace quiltor {

// The product of sizes in 64 bits; nothing when a factor is negative or when the product would not fit into a signed
// 64-bit number, so that a size from a file or from the host can be compared before it is used.
inline std::optional<int64_t> checkedProduct(std::initializer_list<int64_t> factors) {
  int64_t product = 1;
  for (const int64_t factor : factors) {
    if (factor < 0 || __builtin_mul_overflow(product, factor, &product)) return std::nullopt;
  }
  return product;
}

}  // namespace quiltor
