#pragma once

#include <optional>
#include <vector>

namespace quiltor::standalone {

struct LayoutSize {
  int width = 0, height = 0;
  friend bool operator==(const LayoutSize&, const LayoutSize&) = default;
};

struct LayoutRect {
  int x = 0, y = 0, width = 0, height = 0;
  friend bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

struct LayoutMargins {
  int left = 0, top = 0, right = 0, bottom = 0;
};

enum class Orientation { Row, Column, Stack };
enum class Align { Near, Center, Far, Fill };  // Near: left or top; Far: right or bottom

// Along x and y. What is missing is taken from the container's alignChildren.
struct Alignment {
  std::optional<Align> horizontal, vertical;
};

// One element of a dialog as the layout sees it, in logical pixels. `content` is the size of the element by itself,
// its words or picture; for a container, `frame` is what its border and title take. -1 in a size: to be computed.
struct LayoutBox {
  bool isContainer = false;
  LayoutSize content;
  LayoutMargins frame;
  LayoutSize preferred{-1, -1};
  LayoutSize minimum{0, 0};
  LayoutSize maximum{1 << 20, 1 << 20};
  std::optional<LayoutSize> fixedSize;  // given by the script; not stretched either

  Orientation orientation = Orientation::Column;
  Alignment alignment;
  Alignment alignChildren{Align::Near, Align::Center};
  LayoutMargins margins;
  int spacing = 10;
  std::vector<LayoutBox*> children;

  LayoutRect rect;  // the outcome: in the coordinates of the parent
};

// The size that the element wants, from the innermost out. Hidden elements keep their place: a box knows no visibility.
[[nodiscard]] LayoutSize measure(const LayoutBox& box);

// Gives the box its size and all below it theirs. The box's own place is left as it is.
void arrange(LayoutBox& box, LayoutSize size);

}  // namespace quiltor::standalone
