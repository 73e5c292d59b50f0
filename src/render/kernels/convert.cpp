#include "render/kernels/convert.h"

#include <algorithm>
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

// The channels of a pixel lie side by side in the vectors of this file.
using L = Lanes;

// The nearest of steps 0 .. maximum; a not-a-number becomes 0, because a maximum with it is its second operand.
HWY_INLINE L::I toSteps(L::F v, float maximum) {
  const L::F limited = hn::Min(hn::Max(v, L::f(0)), L::f(1));
  return hn::ConvertTo(L::di, limited * L::f(maximum) + L::f(0.5f));
}

constexpr hn::RebindToUnsigned<decltype(L::di)> kWords{};
using Words = hn::Vec<decltype(kWords)>;
HWY_INLINE Words loadWords(const uint8_t* pixels) {
  return hn::BitCast(kWords, hn::LoadU(hn::Repartition<uint8_t, decltype(kWords)>(), pixels));
}

// Each format packs a vector of R, G, B, A into what a world holds, and loads what its private copy holds.
struct Argb8 {
  static constexpr size_t kBytes = 4;
  static HWY_INLINE Words load(const uint8_t* world) { return hn::RotateRight<8>(loadWords(world)); }
  static constexpr hn::Rebind<uint8_t, decltype(L::di)> bytes{};
  static constexpr hn::Repartition<uint32_t, decltype(bytes)> packed{};
  static HWY_INLINE auto words(L::F v) { return hn::BitCast(packed, hn::DemoteTo(bytes, toSteps(v, 255))); }
  static HWY_INLINE auto pack(L::F v) { return hn::RotateRight<24>(words(v)); }
};

struct Bgra8 {
  static constexpr size_t kBytes = 4;
  static constexpr auto packed = Argb8::packed;
  template <class Tag>
  static HWY_INLINE auto swapBlueAndRed(Tag tag, hn::Vec<Tag> words) {
    const auto greenAndAlpha = hn::And(words, hn::Set(tag, 0xFF00FF00u));
    const auto blueAndRed = hn::And(hn::RotateRight<16>(words), hn::Set(tag, 0x00FF00FFu));
    return hn::Or(greenAndAlpha, blueAndRed);
  }
  static HWY_INLINE Words load(const uint8_t* world) { return swapBlueAndRed(kWords, loadWords(world)); }
  static HWY_INLINE auto pack(L::F v) { return swapBlueAndRed(packed, Argb8::words(v)); }
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
size_t pixelsToAlignment(const void* row, size_t vectorBytes, size_t pixelBytes, size_t count) {
  const size_t beyond = reinterpret_cast<uintptr_t>(row) % vectorBytes;
  if (beyond % pixelBytes != 0) return count;
  return std::min((vectorBytes - beyond) % vectorBytes / pixelBytes, count);
}

// Maps a row by what makes a vector of the pixels at a place.
template <class Tag, class Make>
void mapRow(Tag tag, const uint8_t* from, size_t fromBytes, size_t count, uint8_t* to, size_t toBytes, bool streams,
            const Make& make) {
  using Lane = hn::TFromD<Tag>;
  constexpr size_t kVectorBytes = hn::MaxLanes(Tag()) * sizeof(Lane);
  const size_t pixels = kVectorBytes / toBytes;
  const auto few = [&](size_t first, size_t end) {
    HWY_ALIGN uint8_t in[L::kCount * sizeof(float)] = {};
    HWY_ALIGN uint8_t out[kVectorBytes];
    for (size_t x = first; x < end; x += pixels) {
      const size_t left = std::min(pixels, end - x);
      std::memcpy(in, from + x * fromBytes, left * fromBytes);
      hn::Store(make(in), tag, reinterpret_cast<Lane*>(out));
      std::memcpy(to + x * toBytes, out, left * toBytes);
    }
  };
  const auto place = [&](size_t x) { return reinterpret_cast<Lane*>(to + x * toBytes); };
  size_t x = 0;
  if (streams) {
    x = pixelsToAlignment(to, kVectorBytes, toBytes, count);
    few(0, x);
    for (; x + pixels <= count; x += pixels) hn::Stream(make(from + x * fromBytes), tag, place(x));
  } else {
    for (; x + pixels <= count; x += pixels) hn::StoreU(make(from + x * fromBytes), tag, place(x));
  }
  few(x, count);
}

template <class Format, class Tag>
void readRowAs(Tag tag, const uint8_t* world, size_t count, uint8_t* copy, size_t copyBytes, bool streams) {
  mapRow(tag, world, Format::kBytes, count, copy, copyBytes, streams,
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

void readRowKernel(WorldFormat format, const uint8_t* world, size_t count, uint8_t* copy, bool streams) {
  constexpr size_t kBytes = 4 * sizeof(uint8_t), kFloats = 4 * sizeof(float);
  switch (format) {
    case WorldFormat::Argb8:
      return readRowAs<Argb8>(kWords, world, count, copy, kBytes, streams);
    case WorldFormat::Argb16:
      return readRowAs<Argb16>(L::df, world, count, copy, kFloats, streams);
    case WorldFormat::ArgbFloat:
      return readRowAs<ArgbFloat>(L::df, world, count, copy, kFloats, streams);
    case WorldFormat::Bgra8:
      return readRowAs<Bgra8>(kWords, world, count, copy, kBytes, streams);
    case WorldFormat::BgraFloat:
      return readRowAs<BgraFloat>(L::df, world, count, copy, kFloats, streams);
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
HWY_EXPORT(readRowKernel);
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

void readWorldRow(WorldFormat format, const void* world, size_t count, void* copy, bool streams) {
  HWY_DYNAMIC_DISPATCH(readRowKernel)
  (format, static_cast<const uint8_t*>(world), count, static_cast<uint8_t*>(copy), streams);
}

void writeWorldRow(WorldFormat format, const float* result, float k, size_t count, void* world, bool streams) {
  HWY_DYNAMIC_DISPATCH(writeRowKernel)(format, result, k, count, static_cast<uint8_t*>(world), streams);
}
}  // namespace quiltor
#endif
