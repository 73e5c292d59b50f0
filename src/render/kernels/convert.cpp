#include "render/kernels/convert.h"

#include <algorithm>
#include <bit>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "render/kernels/convert.cpp"
#include <hwy/foreach_target.h>
//
#include <hwy/highway.h>
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

// The channels of a pixel lie side by side in the vectors of this file: a vector holds a quarter of its lanes' pixels.
using L = Lanes;
constexpr size_t kPixels = L::kCount / 4;

// The nearest of steps 0 .. maximum; a not-a-number becomes 0, because a maximum with it is its second operand.
HWY_INLINE L::I toSteps(L::F v, float maximum) {
  const L::F limited = hn::Min(hn::Max(v, L::f(0)), L::f(1));
  return hn::ConvertTo(L::di, limited * L::f(maximum) + L::f(0.5f));
}

// Each format stores a vector of R, G, B, A into a world and, where the private copy is float, loads one.
struct Argb8 {
  static constexpr size_t kBytes = 4;
  static constexpr hn::Rebind<uint8_t, decltype(L::di)> bytes{};
  static constexpr hn::Repartition<uint32_t, decltype(bytes)> words{};
  static HWY_INLINE auto pack(L::F v) { return hn::BitCast(words, hn::DemoteTo(bytes, toSteps(v, 255))); }
  static HWY_INLINE void store(L::F v, uint8_t* world) {
    hn::StoreU(hn::BitCast(bytes, hn::RotateRight<24>(pack(v))), bytes, world);
  }
};

struct Bgra8 {
  static constexpr size_t kBytes = 4;
  static HWY_INLINE void store(L::F v, uint8_t* world) {
    const auto word = Argb8::pack(v);
    const auto greenAndAlpha = hn::And(word, hn::Set(Argb8::words, 0xFF00FF00u));
    const auto blueAndRed = hn::And(hn::RotateRight<16>(word), hn::Set(Argb8::words, 0x00FF00FFu));
    hn::StoreU(hn::BitCast(Argb8::bytes, hn::Or(greenAndAlpha, blueAndRed)), Argb8::bytes, world);
  }
};

struct Argb16 {
  static constexpr size_t kBytes = 8;
  static constexpr hn::Rebind<uint16_t, decltype(L::di)> halves{};
  static constexpr hn::Repartition<uint64_t, decltype(halves)> pixels{};
  static HWY_INLINE L::F load(const uint8_t* world) {
    const auto argb = hn::LoadU(halves, reinterpret_cast<const uint16_t*>(world));
    return hn::ConvertTo(L::df, hn::Shuffle0321(hn::PromoteTo(L::di, argb))) * L::f(1.0f / 32768);
  }
  static HWY_INLINE void store(L::F v, uint8_t* world) {
    const auto rgba = hn::BitCast(pixels, hn::DemoteTo(halves, toSteps(v, 32768)));
    const auto argb = hn::Or(hn::ShiftLeft<16>(rgba), hn::ShiftRight<48>(rgba));
    hn::StoreU(hn::BitCast(halves, argb), halves, reinterpret_cast<uint16_t*>(world));
  }
};

struct ArgbFloat {
  static constexpr size_t kBytes = 16;
  static HWY_INLINE L::F load(const uint8_t* world) {
    return hn::Shuffle0321(hn::LoadU(L::df, reinterpret_cast<const float*>(world)));
  }
  static HWY_INLINE void store(L::F v, uint8_t* world) {
    hn::StoreU(hn::Shuffle2103(v), L::df, reinterpret_cast<float*>(world));
  }
};

struct BgraFloat {
  static constexpr size_t kBytes = 16;
  static HWY_INLINE L::F load(const uint8_t* world) {
    return hn::Shuffle0321(hn::Shuffle0123(hn::LoadU(L::df, reinterpret_cast<const float*>(world))));
  }
  static HWY_INLINE void store(L::F v, uint8_t* world) {
    hn::StoreU(hn::Shuffle0321(hn::Shuffle0123(v)), L::df, reinterpret_cast<float*>(world));
  }
};

template <class Format>
void readRowAs(const uint8_t* world, size_t count, float* copy) {
  for (size_t x = 0; x < count; x += kPixels) {
    if (const size_t left = count - x; HWY_LIKELY(left >= kPixels)) {
      hn::StoreU(Format::load(world + x * Format::kBytes), L::df, copy + 4 * x);
    } else {
      HWY_ALIGN uint8_t last[kPixels * Format::kBytes] = {};
      HWY_ALIGN float pixels[4 * kPixels];
      std::memcpy(last, world + x * Format::kBytes, left * Format::kBytes);
      hn::Store(Format::load(last), L::df, pixels);
      std::copy_n(pixels, 4 * left, copy + 4 * x);
    }
  }
}

template <class Format>
void writeRowAs(const float* result, float k, size_t count, uint8_t* world) {
  const L::F factor = L::f(k);
  for (size_t x = 0; x < count; x += kPixels) {
    if (const size_t left = count - x; HWY_LIKELY(left >= kPixels)) {
      Format::store(hn::LoadU(L::df, result + 4 * x) * factor, world + x * Format::kBytes);
    } else {
      HWY_ALIGN float pixels[4 * kPixels] = {};
      HWY_ALIGN uint8_t last[kPixels * Format::kBytes];
      std::copy_n(result + 4 * x, 4 * left, pixels);
      Format::store(hn::Load(L::df, pixels) * factor, last);
      std::memcpy(world + x * Format::kBytes, last, left * Format::kBytes);
    }
  }
}

void readFloatRowKernel(WorldFormat format, const uint8_t* world, size_t count, float* copy) {
  switch (format) {
    case WorldFormat::Argb16:
      return readRowAs<Argb16>(world, count, copy);
    case WorldFormat::ArgbFloat:
      return readRowAs<ArgbFloat>(world, count, copy);
    case WorldFormat::BgraFloat:
      return readRowAs<BgraFloat>(world, count, copy);
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      break;  // bytes stay bytes
  }
}

void writeRowKernel(WorldFormat format, const float* result, float k, size_t count, uint8_t* world) {
  switch (format) {
    case WorldFormat::Argb8:
      return writeRowAs<Argb8>(result, k, count, world);
    case WorldFormat::Argb16:
      return writeRowAs<Argb16>(result, k, count, world);
    case WorldFormat::ArgbFloat:
      return writeRowAs<ArgbFloat>(result, k, count, world);
    case WorldFormat::Bgra8:
      return writeRowAs<Bgra8>(result, k, count, world);
    case WorldFormat::BgraFloat:
      return writeRowAs<BgraFloat>(result, k, count, world);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace quiltor {
HWY_EXPORT(readFloatRowKernel);
HWY_EXPORT(writeRowKernel);

size_t bytesPerPixel(WorldFormat format) {
  switch (format) {
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      return 4;
    case WorldFormat::Argb16:
      return 8;
    case WorldFormat::ArgbFloat:
    case WorldFormat::BgraFloat:
      return 16;
  }
  return 0;
}

ChannelType channelType(WorldFormat format) {
  return bytesPerPixel(format) == 4 ? ChannelType::Byte : ChannelType::Float;
}

namespace {

// Bytes in memory order A, R, G, B or B, G, R, A, seen as a little-endian word, to R, G, B, A.
uint32_t fromArgb(uint32_t word) { return std::rotr(word, 8); }
uint32_t fromBgra(uint32_t word) { return (word & 0xFF00FF00u) | (std::rotr(word, 16) & 0x00FF00FFu); }

template <uint32_t (*kReorder)(uint32_t)>
void reorderBytes(const uint8_t* world, size_t count, uint8_t* copy) {
  for (size_t x = 0; x < count; ++x) {
    uint32_t word;
    std::memcpy(&word, world + 4 * x, sizeof word);
    word = kReorder(word);
    std::memcpy(copy + 4 * x, &word, sizeof word);
  }
}

}  // namespace

void readWorldRow(WorldFormat format, const void* world, size_t count, void* copy) {
  const uint8_t* bytes = static_cast<const uint8_t*>(world);
  if (format == WorldFormat::Argb8) {
    reorderBytes<fromArgb>(bytes, count, static_cast<uint8_t*>(copy));
  } else if (format == WorldFormat::Bgra8) {
    reorderBytes<fromBgra>(bytes, count, static_cast<uint8_t*>(copy));
  } else {
    HWY_DYNAMIC_DISPATCH(readFloatRowKernel)(format, bytes, count, static_cast<float*>(copy));
  }
}

void writeWorldRow(WorldFormat format, const float* result, float k, size_t count, void* world) {
  HWY_DYNAMIC_DISPATCH(writeRowKernel)(format, result, k, count, static_cast<uint8_t*>(world));
}
}  // namespace quiltor
#endif
