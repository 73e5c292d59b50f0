#include "standalone/scripting/elements/element.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "standalone/scripting/elements/focus_moves.h"
#include "standalone/scripting/elements/make_element.h"

namespace quiltor::standalone {
namespace {

std::optional<Align> alignOf(int value) {
  if (value < 0) return std::nullopt;
  return static_cast<Align>(value);
}

}  // namespace

Element::Element(const QString& kind, QWidget* widget, Element* container)
    : QObject(container), kind_(kind), widget_(widget), container_(container) {
  widget_->installEventFilter(this);
  if (container_) container_->children_.push_back(this);
}

Element::~Element() {
  // Widgets go with the widget of their container; only that of a window is its element's own.
  if (!container_) delete widget_;
}

Element& Element::window() { return container_ ? container_->window() : *this; }

void Element::setEnabled(bool enabled) {
  enabled_ = enabled;
  widget_->setEnabled(enabled);
}

void Element::setVisible(bool visible) {
  visible_ = visible;
  if (container_) widget_->setVisible(visible);
}

bool Element::isShown() const { return visible_ && (!container_ || container_->isShown()); }

bool Element::isUsable() const { return isShown() && widget_->isEnabled(); }

QRect Element::placeInWindow() const { return {widget_->mapTo(widget_->window(), QPoint(0, 0)), widget_->size()}; }

Element* Element::add(const QString& kind, const QVariantMap& options) { return makeElement(kind, *this, options); }

void Element::removeChild(Element* child) {
  if (std::erase(children_, child) == 0) return;
  delete child->widget_;
  child->deleteLater();
}

QJSValue Element::tell(const QString& event, const QJSValue& detail) {
  return receiver_.isCallable() ? receiver_.call({event, detail}) : QJSValue();
}

void Element::setDefaults(const LayoutMargins& margins, Orientation orientation) {
  box_.isContainer = true;
  box_.margins = margins;
  box_.orientation = orientation;
}

void Element::setOrientation(const QString& orientation) {
  box_.orientation = Orientation::Stack;
  if (orientation == "row") box_.orientation = Orientation::Row;
  if (orientation == "column") box_.orientation = Orientation::Column;
}

void Element::setAlignment(int horizontal, int vertical) { box_.alignment = {alignOf(horizontal), alignOf(vertical)}; }

void Element::setAlignChildren(int horizontal, int vertical) {
  box_.alignChildren = {alignOf(horizontal), alignOf(vertical)};
}

void Element::setSize(int width, int height) {
  box_.fixedSize = LayoutSize{width, height};
  if (laidOut_) widget_->resize(width, height);
}

void Element::setLocation(int x, int y) {
  if (laidOut_) widget_->move(x, y);
}

QList<int> Element::bounds() const {
  if (!laidOut_) return {};
  const QRect place = widget_->geometry();
  return {place.x(), place.y(), place.width(), place.height()};
}

void Element::describe(LayoutBox& box) const {
  const QSize size = contentSize();
  box.content = {size.width(), size.height()};
}

void Element::collect() {
  describe(box_);
  box_.children.clear();
  for (Element* child : children_) {
    child->collect();
    box_.children.push_back(&child->box_);
  }
}

void Element::apply() {
  laidOut_ = true;
  if (container_) widget_->setGeometry(box_.rect.x, box_.rect.y, box_.rect.width, box_.rect.height);
  for (Element* child : children_) child->apply();
}

void Element::layOut(bool anew) {
  collect();
  const QSize now = widget_->size();
  const LayoutSize size = anew || !laidOut_ ? measure(box_) : LayoutSize{now.width(), now.height()};
  box_.rect.x = widget_->x();
  box_.rect.y = widget_->y();
  arrange(box_, size);
  if (!container_) applyWindowSize({size.width, size.height});
  apply();
}

// --- Drawing ---

bool Element::drawByScript(QPaintEvent* event) {
  if (painting_) return false;
  painting_ = event;
  drawn_.clear();
  drawnImage_.clear();
  painter_.emplace(widget_);
  const bool drew = tell("draw").toBool();
  if (drew && widget_->hasFocus()) drawFocus(*painter_);
  painter_.reset();
  painting_ = nullptr;
  return drew;
}

// What a script draws may cover the sign that the control has the keyboard's attention.
void Element::drawFocus(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::black, 4));
  const QRectF frame = QRectF(widget_->rect()).adjusted(2, 2, -2, -2);
  painter.drawRoundedRect(frame, 3, 3);
  painter.setPen(QPen(widget_->palette().highlight(), 2.5));
  painter.drawRoundedRect(frame.adjusted(-0.5, -0.5, 0.5, 0.5), 3, 3);
}

bool Element::drawControl() {
  if (!painting_) return false;
  drawn_.append("control");
  // Two painters cannot share a widget: the standard look gets it to itself.
  painter_.reset();
  static_cast<QObject*>(widget_)->event(painting_);
  painter_.emplace(widget_);
  return true;
}

bool Element::drawImage(ScriptImage* image, int x, int y, int width, int height) {
  if (!painting_ || !image) return false;
  drawn_.append(QString("image %1x%2").arg(width).arg(height));
  drawnImage_ = image->path();
  const double ratio = widget_->devicePixelRatioF();
  const QSize pixels(qRound(width * ratio), qRound(height * ratio));
  if (!pixels.isEmpty()) painter_->drawImage(QRectF(x, y, width, height), image->scaledTo(pixels));
  return true;
}

bool Element::drawString(const QString& text, const QList<double>& colour, int x, int y) {
  if (!painting_) return false;
  drawn_.append("text \"" + text + "\"");
  if (colour.size() == 4) {
    painter_->setPen(QColor::fromRgbF(static_cast<float>(colour[0]), static_cast<float>(colour[1]),
                                      static_cast<float>(colour[2]), static_cast<float>(colour[3])));
  }
  painter_->drawText(x, y + painter_->fontMetrics().ascent(), text);
  return true;
}

bool Element::drawRectangles(const QList<double>& colour, double penWidth, const QList<int>& corners) {
  if (!painting_ || colour.size() != 4) return false;
  const QColor ink = QColor::fromRgbF(static_cast<float>(colour[0]), static_cast<float>(colour[1]),
                                      static_cast<float>(colour[2]), static_cast<float>(colour[3]));
  painter_->setPen(penWidth > 0 ? QPen(ink, penWidth) : QPen(Qt::NoPen));
  painter_->setBrush(penWidth > 0 ? QBrush(Qt::NoBrush) : QBrush(ink));
  for (qsizetype i = 0; i + 3 < corners.size(); i += 4) {
    drawn_.append(
        QString("%1 %2x%3").arg(penWidth > 0 ? "frame" : "rectangle").arg(corners[i + 2]).arg(corners[i + 3]));
    painter_->drawRect(corners[i], corners[i + 1], corners[i + 2], corners[i + 3]);
  }
  return true;
}

QList<int> Element::measureString(const QString& text) const {
  const QFontMetrics metrics = widget_->fontMetrics();
  return {metrics.horizontalAdvance(text), metrics.height()};
}

// --- What happens to the widget ---

void Element::tellMouse(const char* name, const QEvent* event) {
  const auto& mouse = static_cast<const QMouseEvent&>(*event);
  // Qt hands on to containers what a label does not use; the script's object does that by itself.
  if (mouse.button() == Qt::LeftButton && !widget_->childAt(mouse.position().toPoint())) tell(name);
}

bool Element::eventFilter(QObject* watched, QEvent* event) {
  if (watched != widget_) return false;
  // The script may remove the element in any of its handlers.
  const QPointer<Element> alive(this);
  switch (event->type()) {
    case QEvent::Paint:
      return drawByScript(static_cast<QPaintEvent*>(event));
    case QEvent::MouseButtonPress:
      tellMouse("mousedown", event);
      break;
    case QEvent::MouseButtonRelease:
      tellMouse("mouseup", event);
      if (alive && widget_->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint()))
        tellMouse("click", event);
      break;
    case QEvent::FocusIn:
      tell("focus");
      break;
    case QEvent::FocusOut:
      tell("blur");
      break;
    case QEvent::KeyPress:
      if (kind_ == "iconbutton" && moveFocusByArrow(*this, static_cast<QKeyEvent*>(event)->key())) return true;
      break;
    default:
      break;
  }
  return !alive;
}

}  // namespace quiltor::standalone
