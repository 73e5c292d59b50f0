#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>
#include <vector>

#include "standalone/host/masks/coverage.h"
#include "standalone/host/services/host_state.h"
#include "standalone/host/services/rectangle.h"
#include "standalone/host/suites/bad_argument.h"
#include "standalone/host/suites/suite_table.h"
#include "standalone/host/suites/suite_tables.h"

namespace quiltor::standalone {
namespace {

// The part of a world's pixels that a call is about; a null rectangle stands for all.
PF_LRect areaOf(const PF_EffectWorld& world, const PF_Rect* rectangle) {
  if (!world.data) return {};
  const PF_LRect whole{0, 0, world.width, world.height};
  return rectangle ? intersection(whole, *rectangle) : whole;
}

unsigned char* pixelAt(const PF_EffectWorld& world, WorldFormat format, int x, int y) {
  return reinterpret_cast<unsigned char*>(world.data) + static_cast<std::ptrdiff_t>(y) * world.rowbytes +
         static_cast<std::ptrdiff_t>(x) * bytesPerPixel(format);
}

template <class Channel>
void multiplyAlpha(unsigned char* pixel, double factor) {
  Channel alpha;
  std::memcpy(&alpha, pixel, sizeof alpha);
  const double product = static_cast<double>(alpha) * factor;
  alpha = static_cast<Channel>(std::is_integral_v<Channel> ? std::round(product) : product);
  std::memcpy(pixel, &alpha, sizeof alpha);
}

void multiplyAlpha(WorldFormat format, unsigned char* pixel, double factor) {
  switch (format) {
    case WorldFormat::Argb8:
      return multiplyAlpha<A_u_char>(pixel, factor);
    case WorldFormat::Argb16:
      return multiplyAlpha<A_u_short>(pixel, factor);
    default:
      return multiplyAlpha<float>(pixel, factor);
  }
}

bool isFeather(double feather) {
  constexpr double kWidest = 32000;
  return feather >= 0 && feather <= kWidest;
}

A_Err maskWorldWithPath(PF_ProgPtr effect, PF_PathOutlinePtr* path, PF_FpLong featherX, PF_FpLong featherY,
                        PF_Boolean invert, PF_FpLong opacity, PF_Quality quality, PF_EffectWorld* world,
                        PF_Rect* bounds) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::DrawPath, "PF_MaskWorldWithPath")) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!path) return badArgument("PF_MaskWorldWithPath needs the address of the path's pointer");
  const auto outline = host.paths.outlineOf(*path);
  if (!outline) return PF_Err_BAD_CALLBACK_PARAM;
  if (!isFeather(featherX) || !isFeather(featherY) || !(opacity >= 0 && opacity <= 1)) {
    return badArgument("PF_MaskWorldWithPath takes feathers from 0 to 32000 pixels and an opacity from 0 to 1");
  }
  if (quality < PF_Quality_DRAWING_AUDIO || quality > PF_Quality_HI) {
    return badArgument("PF_MaskWorldWithPath takes a quality from -1 to 1");
  }
  const auto format = world ? formatOf(*world) : std::nullopt;
  if (!format || isVideoEditorFormat(*format)) {
    return badArgument("PF_MaskWorldWithPath was told to draw into what is no world of the host");
  }
  const PF_LRect area = areaOf(*world, bounds);
  if (isEmpty(area)) return PF_Err_NONE;
  try {
    const CoverageRequest request{.left = world->origin_x + area.left,
                                  .top = world->origin_y + area.top,
                                  .width = area.right - area.left,
                                  .height = area.bottom - area.top,
                                  .featherX = featherX,
                                  .featherY = featherY,
                                  .antiAliased = quality == PF_Quality_HI};
    const std::vector<float> covered = coverageOf(*outline, request);
    auto coverage = covered.begin();
    for (int y = area.top; y < area.bottom; ++y) {
      for (int x = area.left; x < area.right; ++x, ++coverage) {
        const double inside = static_cast<double>(*coverage);
        multiplyAlpha(*format, pixelAt(*world, *format, x, y), (invert ? 1 - inside : inside) * opacity);
      }
    }
  } catch (const std::bad_alloc&) {
    return PF_Err_OUT_OF_MEMORY;
  }
  return PF_Err_NONE;
}

PF_Err fill(PF_ProgPtr effect, const PF_Pixel* color, const PF_Rect* rectangle, PF_EffectWorld* world) {
  HostState& host = hostState();
  if (const PF_Err refused = host.faults.refusal(HostCall::Fill, "fill of the matte")) return refused;
  if (!host.callOf(effect)) return PF_Err_BAD_CALLBACK_PARAM;
  if (!color || !world || formatOf(*world) != WorldFormat::Argb8) {
    return badArgument("fill takes a colour and a world of 8 bits of the host");
  }
  const PF_LRect area = areaOf(*world, rectangle);
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      std::memcpy(pixelAt(*world, WorldFormat::Argb8, x, y), color, sizeof *color);
    }
  }
  return PF_Err_NONE;
}

PF_MaskSuite1 makeMaskSuite() {
  auto suite = tableOfUnimplementedSlots<PF_MaskSuite1>();
  suite.PF_MaskWorldWithPath = &maskWorldWithPath;
  return suite;
}

PF_FillMatteSuite2 makeFillMatteSuite() {
  auto suite = tableOfUnimplementedSlots<PF_FillMatteSuite2>();
  suite.fill = &fill;
  return suite;
}

}  // namespace

const PF_MaskSuite1& maskSuite() {
  static const PF_MaskSuite1 suite = makeMaskSuite();
  return suite;
}

const PF_FillMatteSuite2& fillMatteSuite() {
  static const PF_FillMatteSuite2 suite = makeFillMatteSuite();
  return suite;
}

}  // namespace quiltor::standalone
