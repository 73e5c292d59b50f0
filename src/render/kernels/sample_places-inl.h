// Where the pixels of a frame lie in the pattern.
#if defined(QUILTOR_SAMPLE_PLACES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef QUILTOR_SAMPLE_PLACES_INL_H
#undef QUILTOR_SAMPLE_PLACES_INL_H
#else
#define QUILTOR_SAMPLE_PLACES_INL_H
#endif

#include <cmath>

#include <hwy/highway.h>
#include "render/kernels/sample.h"
#include "render/kernels/tile_fold.h"
#include "render/kernels/vector_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace quiltor {
namespace HWY_NAMESPACE {

// Places are computed in 64 bits: fewer to a vector than there are pixels in one.
using V = hn::Vec<decltype(Lanes::dd)>;
constexpr size_t kPlaces = HWY_LANES(double);

HWY_INLINE V number(double value) { return hn::Set(Lanes::dd, value); }

struct Place {
  V x, y;
};

// Below this magnitude the quotient of a fold is off by at most one, which the corrections mend exactly.
constexpr double kFoldInVectors = 0x1p50;

// What adding or subtracting size over and over leaves. Product and first difference are exact, because they stay on
// the grid of x, or the sum is the one step of the loop that rounds.
HWY_INLINE V foldTiledLanes(V x, V size, V inverse) {
  const V rest = hn::NegMulAdd(hn::Floor(x * inverse), size, x);
  if (HWY_LIKELY(hn::AllTrue(Lanes::dd, hn::And(rest >= number(0), rest < size)))) return rest;
  const V raised = hn::IfThenElse(rest < number(0), rest + size, rest);
  return hn::IfThenElse(raised >= size, raised - size, raised);
}

HWY_INLINE V foldMirroredLanes(V x, V size, V inverse) {
  const V period = size + size;
  const V rest = foldTiledLanes(hn::Abs(x), period, inverse);
  const V folded = hn::IfThenElse(rest >= size, period - rest, rest);
  return hn::IfThenElse(folded >= size, size - number(1), folded);
}

// Folds coordinates along one direction of the pattern. kNear: all are known to lie within kFoldInVectors.
template <TileMode kMode, bool kNear>
struct Fold {
  explicit Fold(int32_t pixels)
      : size(pixels), inverse((kMode == TileMode::Mirrored ? 0.5 : 1.0) / pixels), whole(pixels) {}

  HWY_INLINE V operator()(V x) const {
    constexpr bool kMirrored = kMode == TileMode::Mirrored;
    if (kNear || HWY_LIKELY(hn::AllTrue(Lanes::dd, hn::Abs(x) < number(kFoldInVectors)))) {
      return kMirrored ? foldMirroredLanes(x, number(size), number(inverse))
                       : foldTiledLanes(x, number(size), number(inverse));
    }
    HWY_ALIGN double lanes[kPlaces];
    hn::Store(x, Lanes::dd, lanes);
    for (double& lane : lanes) lane = kMirrored ? foldMirrored(lane, whole) : foldTiled(lane, whole);
    return hn::Load(Lanes::dd, lanes);
  }

  // The same for near coordinates, or something outside of the pattern where that takes corrections.
  HWY_INLINE V attempt(V x) const {
    if constexpr (kMode == TileMode::Tiled) return hn::NegMulAdd(hn::Floor(x * number(inverse)), number(size), x);
    const V distance = hn::Abs(x), period = number(2 * size);
    const V rest = hn::NegMulAdd(hn::Floor(distance * number(inverse)), period, distance);
    return hn::Min(rest, period - rest);
  }

  double size, inverse;
  int32_t whole;
};

// From a pixel of one row of the frame to its place in the pattern, not yet folded.
class RowPlaces {
 public:
  RowPlaces(const PatternPixels& pattern, const SampleTransform& transform, int32_t row)
      : t_(transform),
        py_(row + transform.originY),
        halfX_(pattern.width / 2),
        halfY_(pattern.height / 2),
        plain_(!transform.lockOn && transform.downsampleX == 1 && transform.downsampleY == 1) {}

  // Whether the layer's transform and the resolution leave the places alone.
  bool plain() const { return plain_; }

  template <bool kPlain>
  HWY_INLINE Place at(V column) const {
    V px = column + number(t_.originX), py = number(py_);
    if (!kPlain && t_.lockOn) {
      const V dx = px - number(t_.lockX), dy = py - number(t_.lockY);
      const V c = number(t_.lockCos), s = number(t_.lockSin);
      px = (c * dx - s * dy) * number(t_.lockInvScaleX) + number(t_.lockAnchorX);
      py = (s * dx + c * dy) * number(t_.lockInvScaleY) + number(t_.lockAnchorY);
    }
    const V u = px - number(t_.offsetX), v = py - number(t_.offsetY);
    const V c = number(t_.cosine), s = number(t_.sine), k = number(t_.scaleFactor);
    const V x = (c * u - s * v) * k + number(halfX_), y = (s * u + c * v) * k + number(halfY_);
    if (kPlain) return {x, y};
    return {x / number(t_.downsampleX), y / number(t_.downsampleY)};
  }

  // Whether the folds of columns first .. first + count - 1 can do without asking each place: without a layer's
  // transform a place moves in one direction along the row, so that its ends tell.
  bool near(double first, size_t count) const {
    if (!plain_) return false;
    HWY_ALIGN double lanes[2 * kPlaces];
    for (const double column : {first, first + static_cast<double>(count + kPlaces)}) {
      const Place place = at<true>(number(column));
      hn::Store(place.x, Lanes::dd, lanes);
      hn::Store(place.y, Lanes::dd, lanes + kPlaces);
      if (!(std::fabs(lanes[0]) < kFoldInVectors / 2 && std::fabs(lanes[kPlaces]) < kFoldInVectors / 2)) return false;
    }
    return true;
  }

 private:
  SampleTransform t_;
  double py_;
  double halfX_, halfY_;
  bool plain_;
};

}  // namespace HWY_NAMESPACE
}  // namespace quiltor
HWY_AFTER_NAMESPACE();

#endif
