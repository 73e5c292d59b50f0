#include "standalone/scripting/elements/focus_moves.h"

#include <QPoint>
#include <cstdlib>
#include <optional>

#include "standalone/scripting/elements/element.h"

namespace quiltor::standalone {
namespace {

std::optional<QPoint> directionOf(int key) {
  if (key == Qt::Key_Left) return QPoint(-1, 0);
  if (key == Qt::Key_Right) return QPoint(1, 0);
  if (key == Qt::Key_Up) return QPoint(0, -1);
  if (key == Qt::Key_Down) return QPoint(0, 1);
  return std::nullopt;
}

struct Nearest {
  Element* element = nullptr;
  int distance = 0;
};

// Straight ahead is nearer than aside.
void search(Element& in, Element& from, QPoint direction, Nearest& nearest) {
  constexpr int kSideways = 8;
  for (Element* child : in.children()) search(*child, from, direction, nearest);
  if (in.kind() != from.kind() || &in == &from || !in.isUsable()) return;
  const QPoint way = in.placeInWindow().center() - from.placeInWindow().center();
  const int ahead = QPoint::dotProduct(way, direction);
  if (ahead <= 0) return;
  const int distance = ahead + kSideways * (std::abs(way.x()) + std::abs(way.y()) - ahead);
  if (!nearest.element || distance < nearest.distance) nearest = {&in, distance};
}

}  // namespace

bool moveFocusByArrow(Element& from, int key) {
  const auto direction = directionOf(key);
  if (!direction) return false;
  Nearest nearest;
  search(from.window(), from, *direction, nearest);
  if (!nearest.element) return true;  // else Qt would go to the next control in any direction
  nearest.element->widget()->setFocus(Qt::TabFocusReason);
  return true;
}

}  // namespace quiltor::standalone
