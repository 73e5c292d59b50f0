#pragma once

#include <cstdint>

namespace quiltor {

// The effect's parameters, in the order of the built-in description and under the names that it gives them.
namespace Param {
enum Index : int32_t {
  in0,
  source,
  patsrc,
  txtsrc,
  lock,
  tilemode,
  blendmode,
  opacity,
  scale,
  offset,
  rotation,
  invert,
  tintcolor,
  tintopacity,
  blur,
  mask,
  count
};
}  // namespace Param

}  // namespace quiltor
