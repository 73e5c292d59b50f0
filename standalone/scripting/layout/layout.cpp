#include "standalone/scripting/layout/layout.h"

#include <algorithm>

namespace quiltor::standalone {
namespace {

int clampTo(int value, int low, int high) { return std::max(low, std::min(value, high)); }

// One direction of a layout: `along` picks x or y of everything, so that rows and columns share their text.
struct Axis {
  bool isHorizontal;

  int of(const LayoutSize& size) const { return isHorizontal ? size.width : size.height; }
  int& of(LayoutSize& size) const { return isHorizontal ? size.width : size.height; }
  int& lengthOf(LayoutRect& rect) const { return isHorizontal ? rect.width : rect.height; }
  int& startOf(LayoutRect& rect) const { return isHorizontal ? rect.x : rect.y; }
  int before(const LayoutMargins& margins) const { return isHorizontal ? margins.left : margins.top; }
  int around(const LayoutMargins& margins) const {
    return isHorizontal ? margins.left + margins.right : margins.top + margins.bottom;
  }
  Align alignment(const LayoutBox& child, const LayoutBox& parent) const {
    const Align align = own(child.alignment).value_or(own(parent.alignChildren).value_or(Align::Center));
    return child.fixedSize && align == Align::Fill ? Align::Near : align;
  }

 private:
  std::optional<Align> own(const Alignment& alignment) const {
    return isHorizontal ? alignment.horizontal : alignment.vertical;
  }
};

constexpr Axis kHorizontal{true}, kVertical{false};

int childrenLength(const LayoutBox& box, const Axis& axis) {
  const bool isMain = box.orientation == (axis.isHorizontal ? Orientation::Row : Orientation::Column);
  int length = isMain && !box.children.empty() ? -box.spacing : 0;
  for (const LayoutBox* child : box.children) {
    const int wanted = axis.of(measure(*child));
    length = isMain ? length + wanted + box.spacing : std::max(length, wanted);
  }
  return length;
}

int measureAlong(const LayoutBox& box, const Axis& axis) {
  if (box.fixedSize) return axis.of(*box.fixedSize);
  int length = axis.of(box.preferred);
  if (length < 0) {
    length = box.isContainer ? childrenLength(box, axis) + axis.around(box.margins) : axis.of(box.content);
    length += axis.around(box.frame);
  }
  return clampTo(length, axis.of(box.minimum), axis.of(box.maximum));
}

// Across the direction of the children each has the whole width or height to itself.
void placeAcross(LayoutBox& box, const Axis& axis, int start, int space) {
  for (LayoutBox* child : box.children) {
    const Align align = axis.alignment(*child, box);
    const int wanted = axis.of(measure(*child));
    const int length = align == Align::Fill ? clampTo(space, axis.of(child->minimum), axis.of(child->maximum)) : wanted;
    int offset = 0;
    if (align == Align::Center) offset = (space - length) / 2;
    if (align == Align::Far) offset = space - length;
    axis.lengthOf(child->rect) = length;
    axis.startOf(child->rect) = start + std::max(0, offset);
  }
}

// Along their direction the children follow each other. The free space goes to those that fill; without any it stands
// before the first that is aligned to the far end, or on both sides of those in the middle.
void placeAlong(LayoutBox& box, const Axis& axis, int start, int space) {
  int free = space + box.spacing, fillers = 0;
  for (const LayoutBox* child : box.children) {
    free -= axis.of(measure(*child)) + box.spacing;
    if (axis.alignment(*child, box) == Align::Fill) ++fillers;
  }
  free = std::max(0, free);
  int place = start;
  Align reached = Align::Near;
  for (LayoutBox* child : box.children) {
    const Align align = axis.alignment(*child, box);
    int length = axis.of(measure(*child));
    if (align == Align::Fill) {
      const int share = free / fillers--;
      free -= share;
      length += share;
    } else if (fillers == 0 && align > reached) {
      const int gap = align == Align::Far ? free : free / 2;
      place += gap;
      free -= gap;
      reached = align;
    }
    axis.lengthOf(child->rect) = length;
    axis.startOf(child->rect) = place;
    place += length + box.spacing;
  }
}

void place(LayoutBox& box, const Axis& axis, LayoutSize size) {
  const int start = axis.before(box.frame) + axis.before(box.margins);
  const int space = axis.of(size) - axis.around(box.frame) - axis.around(box.margins);
  const Orientation main = axis.isHorizontal ? Orientation::Row : Orientation::Column;
  if (box.orientation == main) {
    placeAlong(box, axis, start, space);
  } else {
    placeAcross(box, axis, start, space);
  }
}

}  // namespace

LayoutSize measure(const LayoutBox& box) { return {measureAlong(box, kHorizontal), measureAlong(box, kVertical)}; }

void arrange(LayoutBox& box, LayoutSize size) {
  box.rect.width = size.width;
  box.rect.height = size.height;
  place(box, kHorizontal, size);
  place(box, kVertical, size);
  for (LayoutBox* child : box.children) arrange(*child, {child->rect.width, child->rect.height});
}

}  // namespace quiltor::standalone
