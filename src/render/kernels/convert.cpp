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

using L = Lanes;

HWY_INLINE L::F limited(L::F v) {
  const L::F floored = L::select(v > L::f(0), v, L::f(0));
  return L::select(floored < L::f(1), floored, L::f(1));
}

// The nearest of steps 0 .. maximum.
HWY_INLINE L::I toSteps(L::F v, float maximum) { return hn::ConvertTo(L::di, limited(v) * L::f(maximum) + L::f(0.5f)); }

// Each format stores N pixels into a world and, where the private copy is float, loads them from it.
struct Argb8 {
  static constexpr size_t kBytes = 4;
  static HWY_INLINE void store(const PixelLanes& p, uint8_t* world) {
    const L::I low = toSteps(p.a, 255) + hn::ShiftLeft<8>(toSteps(p.r, 255));
    const L::I high = toSteps(p.g, 255) + hn::ShiftLeft<8>(toSteps(p.b, 255));
    hn::StoreU(low + hn::ShiftLeft<16>(high), L::di, reinterpret_cast<int32_t*>(world));
  }
};

struct Bgra8 {
  static constexpr size_t kBytes = 4;
  static HWY_INLINE void store(const PixelLanes& p, uint8_t* world) { Argb8::store({p.g, p.r, p.a, p.b}, world); }
};

struct Argb16 {
  static constexpr size_t kBytes = 8;
  static HWY_INLINE L::F fraction(L::I halves) {
    return hn::ConvertTo(L::df, hn::And(halves, hn::Set(L::di, 0xFFFF))) * L::f(1.0f / 32768);
  }
  static HWY_INLINE PixelLanes load(const uint8_t* world) {
    L::I ar, gb;
    hn::LoadInterleaved2(L::di, reinterpret_cast<const int32_t*>(world), ar, gb);
    return {fraction(hn::ShiftRight<16>(ar)), fraction(gb), fraction(hn::ShiftRight<16>(gb)), fraction(ar)};
  }
  static HWY_INLINE void store(const PixelLanes& p, uint8_t* world) {
    const L::I ar = toSteps(p.a, 32768) + hn::ShiftLeft<16>(toSteps(p.r, 32768));
    const L::I gb = toSteps(p.g, 32768) + hn::ShiftLeft<16>(toSteps(p.b, 32768));
    hn::StoreInterleaved2(ar, gb, L::di, reinterpret_cast<int32_t*>(world));
  }
};

struct ArgbFloat {
  static constexpr size_t kBytes = 16;
  static HWY_INLINE PixelLanes load(const uint8_t* world) {
    PixelLanes p;
    hn::LoadInterleaved4(L::df, reinterpret_cast<const float*>(world), p.a, p.r, p.g, p.b);
    return p;
  }
  static HWY_INLINE void store(const PixelLanes& p, uint8_t* world) {
    hn::StoreInterleaved4(p.a, p.r, p.g, p.b, L::df, reinterpret_cast<float*>(world));
  }
};

struct BgraFloat {
  static constexpr size_t kBytes = 16;
  static HWY_INLINE PixelLanes load(const uint8_t* world) {
    PixelLanes p;
    hn::LoadInterleaved4(L::df, reinterpret_cast<const float*>(world), p.b, p.g, p.r, p.a);
    return p;
  }
  static HWY_INLINE void store(const PixelLanes& p, uint8_t* world) {
    hn::StoreInterleaved4(p.b, p.g, p.r, p.a, L::df, reinterpret_cast<float*>(world));
  }
};

template <class Format>
void readRowAs(const uint8_t* world, size_t count, float* copy) {
  for (size_t x = 0; x < count; x += L::kCount) {
    if (const size_t left = count - x; left >= L::kCount) {
      storeFloats(Format::load(world + x * Format::kBytes), copy + 4 * x);
    } else {
      uint8_t last[L::kCount * Format::kBytes] = {};
      float pixels[L::kCount * 4];
      std::memcpy(last, world + x * Format::kBytes, left * Format::kBytes);
      storeFloats(Format::load(last), pixels);
      std::copy_n(pixels, 4 * left, copy + 4 * x);
    }
  }
}

HWY_INLINE PixelLanes multiplied(const PixelLanes& p, float k) {
  return {p.r * L::f(k), p.g * L::f(k), p.b * L::f(k), p.a * L::f(k)};
}

template <class Format>
void writeRowAs(const float* result, float k, size_t count, uint8_t* world) {
  for (size_t x = 0; x < count; x += L::kCount) {
    if (const size_t left = count - x; left >= L::kCount) {
      Format::store(multiplied(loadFloats(result + 4 * x), k), world + x * Format::kBytes);
    } else {
      float pixels[L::kCount * 4] = {};
      uint8_t last[L::kCount * Format::kBytes];
      std::copy_n(result + 4 * x, 4 * left, pixels);
      Format::store(multiplied(loadFloats(pixels), k), last);
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
