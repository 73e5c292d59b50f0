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

// Each format packs a vector of R, G, B, A into what a world holds and, where the private copy is float, unpacks it.
struct Argb8 {
  static constexpr size_t kBytes = 4;
  static constexpr hn::Rebind<uint8_t, decltype(L::di)> bytes{};
  static constexpr hn::Repartition<uint32_t, decltype(bytes)> packed{};
  static HWY_INLINE auto words(L::F v) { return hn::BitCast(packed, hn::DemoteTo(bytes, toSteps(v, 255))); }
  static HWY_INLINE auto pack(L::F v) { return hn::RotateRight<24>(words(v)); }
};

struct Bgra8 {
  static constexpr size_t kBytes = 4;
  static constexpr auto packed = Argb8::packed;
  static HWY_INLINE auto pack(L::F v) {
    const auto word = Argb8::words(v);
    const auto greenAndAlpha = hn::And(word, hn::Set(packed, 0xFF00FF00u));
    const auto blueAndRed = hn::And(hn::RotateRight<16>(word), hn::Set(packed, 0x00FF00FFu));
    return hn::Or(greenAndAlpha, blueAndRed);
  }
};

struct Argb16 {
  static constexpr size_t kBytes = 8;
  static constexpr hn::Rebind<uint16_t, decltype(L::di)> halves{};
  static constexpr hn::Repartition<uint64_t, decltype(halves)> packed{};
  static HWY_INLINE L::F load(const uint8_t* world) {
    const auto argb = hn::LoadU(halves, reinterpret_cast<const uint16_t*>(world));
    return hn::ConvertTo(L::df, hn::Shuffle0321(hn::PromoteTo(L::di, argb))) * L::f(1.0f / 32768);
  }
  static HWY_INLINE auto pack(L::F v) {
    const auto rgba = hn::BitCast(packed, hn::DemoteTo(halves, toSteps(v, 32768)));
    return hn::Or(hn::ShiftLeft<16>(rgba), hn::ShiftRight<48>(rgba));
  }
};

struct ArgbFloat {
  static constexpr size_t kBytes = 16;
  static constexpr auto packed = L::df;
  static HWY_INLINE L::F load(const uint8_t* world) {
    return hn::Shuffle0321(hn::LoadU(L::df, reinterpret_cast<const float*>(world)));
  }
  static HWY_INLINE L::F pack(L::F v) { return hn::Shuffle2103(v); }
};

struct BgraFloat {
  static constexpr size_t kBytes = 16;
  static constexpr auto packed = L::df;
  static HWY_INLINE L::F load(const uint8_t* world) {
    return hn::Shuffle0321(hn::Shuffle0123(hn::LoadU(L::df, reinterpret_cast<const float*>(world))));
  }
  static HWY_INLINE L::F pack(L::F v) { return hn::Shuffle0321(hn::Shuffle0123(v)); }
};

// How many pixels come before the first whole vector of a row when it has to be aligned to be written past the caches;
// all of them when none is.
size_t pixelsToAlignment(const void* row, size_t pixelBytes, size_t count) {
  const size_t vectorBytes = kPixels * pixelBytes;
  const size_t beyond = reinterpret_cast<uintptr_t>(row) % vectorBytes;
  if (beyond % pixelBytes != 0) return count;
  return std::min((vectorBytes - beyond) % vectorBytes / pixelBytes, count);
}

// Applies work, which maps kPixels pixels from one place to another, to a few pixels.
template <class Work>
void onFew(const uint8_t* from, size_t fromBytes, size_t count, uint8_t* to, size_t toBytes, const Work& work) {
  constexpr size_t kMost = kPixels * 4 * sizeof(float);
  HWY_ALIGN uint8_t in[kMost] = {};
  HWY_ALIGN uint8_t out[kMost];
  for (size_t x = 0; x < count; x += kPixels) {
    const size_t few = std::min(kPixels, count - x);
    std::memcpy(in, from + x * fromBytes, few * fromBytes);
    work(in, out);
    std::memcpy(to + x * toBytes, out, few * toBytes);
  }
}

// Maps a row by what makes a vector of the pixels at a place.
template <class Tag, class Make>
void mapRow(Tag tag, const uint8_t* from, size_t fromBytes, size_t count, uint8_t* to, size_t toBytes, bool streams,
            const Make& make) {
  using Lane = hn::TFromD<Tag>;
  const auto few = [&](const uint8_t* in, uint8_t* out) { hn::StoreU(make(in), tag, reinterpret_cast<Lane*>(out)); };
  size_t x = 0;
  if (streams) {
    x = pixelsToAlignment(to, toBytes, count);
    onFew(from, fromBytes, x, to, toBytes, few);
    for (; x + kPixels <= count; x += kPixels) {
      hn::Stream(make(from + x * fromBytes), tag, reinterpret_cast<Lane*>(to + x * toBytes));
    }
  } else {
    for (; x + kPixels <= count; x += kPixels) few(from + x * fromBytes, to + x * toBytes);
  }
  onFew(from + x * fromBytes, fromBytes, count - x, to + x * toBytes, toBytes, few);
}

template <class Format>
void readRowAs(const uint8_t* world, size_t count, float* copy, bool streams) {
  mapRow(L::df, world, Format::kBytes, count, reinterpret_cast<uint8_t*>(copy), 4 * sizeof(float), streams,
         [](const uint8_t* from) { return Format::load(from); });
}

template <class Format>
void writeRowAs(const float* result, float k, size_t count, uint8_t* world, bool streams) {
  const L::F factor = L::f(k);
  mapRow(Format::packed, reinterpret_cast<const uint8_t*>(result), 4 * sizeof(float), count, world, Format::kBytes,
         streams, [factor](const uint8_t* from) {
           return Format::pack(hn::LoadU(L::df, reinterpret_cast<const float*>(from)) * factor);
         });
}

void readFloatRowKernel(WorldFormat format, const uint8_t* world, size_t count, float* copy, bool streams) {
  switch (format) {
    case WorldFormat::Argb16:
      return readRowAs<Argb16>(world, count, copy, streams);
    case WorldFormat::ArgbFloat:
      return readRowAs<ArgbFloat>(world, count, copy, streams);
    case WorldFormat::BgraFloat:
      return readRowAs<BgraFloat>(world, count, copy, streams);
    case WorldFormat::Argb8:
    case WorldFormat::Bgra8:
      break;  // bytes stay bytes
  }
}

void writeRowKernel(WorldFormat format, const float* result, float k, size_t count, uint8_t* world, bool streams) {
  switch (format) {
    case WorldFormat::Argb8:
      return writeRowAs<Argb8>(result, k, count, world, streams);
    case WorldFormat::Argb16:
      return writeRowAs<Argb16>(result, k, count, world, streams);
    case WorldFormat::ArgbFloat:
      return writeRowAs<ArgbFloat>(result, k, count, world, streams);
    case WorldFormat::Bgra8:
      return writeRowAs<Bgra8>(result, k, count, world, streams);
    case WorldFormat::BgraFloat:
      return writeRowAs<BgraFloat>(result, k, count, world, streams);
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

void readWorldRow(WorldFormat format, const void* world, size_t count, void* copy, bool streams) {
  const uint8_t* bytes = static_cast<const uint8_t*>(world);
  if (format == WorldFormat::Argb8) {
    reorderBytes<fromArgb>(bytes, count, static_cast<uint8_t*>(copy));
  } else if (format == WorldFormat::Bgra8) {
    reorderBytes<fromBgra>(bytes, count, static_cast<uint8_t*>(copy));
  } else {
    HWY_DYNAMIC_DISPATCH(readFloatRowKernel)(format, bytes, count, static_cast<float*>(copy), streams);
  }
}

void writeWorldRow(WorldFormat format, const float* result, float k, size_t count, void* world, bool streams) {
  HWY_DYNAMIC_DISPATCH(writeRowKernel)(format, result, k, count, static_cast<uint8_t*>(world), streams);
}
}  // namespace quiltor
#endif
