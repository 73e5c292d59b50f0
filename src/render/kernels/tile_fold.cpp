#include "render/kernels/tile_fold.h"

#include <cmath>

namespace quiltor {
namespace {

// Up to here neighbouring doubles lie at most 1 apart, so adding or subtracting a whole number that brings a coordinate
// nearer to zero is exact and the loop is a remainder.
constexpr double kExact = 0x1p53;

// What subtracting size from x over and over leaves once it is below kExact. Beyond kExact each step rounds to the grid
// of the binade, and from the second step on all steps of a binade are equal: jump to its lower end, then step across.
// Returns a negative number when the loop would never end.
double descend(double x, double size) {
  while (x >= kExact) {
    const double first = x - size;
    if (first < kExact) return first;
    const double second = first - size;
    const double step = first - second;
    if (step == 0) return -1;
    const double binade = std::ldexp(1, std::ilogb(second));
    const double turns = first >= 2 * binade ? 0 : std::floor((second - binade) / step) - 1;
    x = turns > 0 ? second - turns * step : second;
  }
  return x;
}

}  // namespace

double foldTiled(double x, int32_t size) {
  if (!std::isfinite(x)) return 0;
  if (x >= 0 && x < size) return x;
  const double distance = descend(std::fabs(x), size);
  if (distance < 0) return 0;
  const double rest = std::fmod(distance, size);
  if (x >= 0) return rest;
  const double folded = rest == 0 ? 0 : size - rest;
  return folded >= size ? folded - size : folded;
}

double foldMirrored(double x, int32_t size) {
  if (!std::isfinite(x)) return 0;
  const double period = 2.0 * size;
  double folded = std::fmod(std::fabs(x), period);
  if (folded >= size) folded = period - folded;
  return folded >= size ? size - 1.0 : folded;
}

}  // namespace quiltor
