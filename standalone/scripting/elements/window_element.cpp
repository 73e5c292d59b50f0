#include "standalone/scripting/elements/window_element.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

namespace quiltor::standalone {

class DialogWidget : public QDialog {
 public:
  WindowElement* element = nullptr;

  void attendFirst() { focusNextChild(); }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    element->closeByTitleBar();
  }

  // What the control with the keyboard's attention has not used. Enter means the attended button, else the dialog's
  // default one.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) element->tell("escape");
    if (event->key() != Qt::Key_Enter && event->key() != Qt::Key_Return) return;
    auto* const button = qobject_cast<QPushButton*>(focusWidget());
    if (button) {
      button->click();
    } else {
      element->tell("enter");
    }
  }
};

WindowElement::WindowElement(Face& face, QObject* owner) : Element("dialog", new DialogWidget, nullptr), face_(face) {
  setParent(owner);
  setDefaults({15, 15, 15, 15}, Orientation::Column);
  static_cast<DialogWidget*>(widget())->element = this;
}

void WindowElement::setText(const QString& text) {
  Element::setText(text);
  widget()->setWindowTitle(text);
}

void WindowElement::setLocation(int x, int y) {
  place_ = QPoint(x, y);
  widget()->setGeometry(QRect(*place_, widget()->size()));
}

QList<int> WindowElement::bounds() const {
  if (!isLaidOut()) return place_ ? QList<int>{place_->x(), place_->y()} : QList<int>{};
  return Element::bounds();
}

void WindowElement::applyWindowSize(QSize size) { widget()->setFixedSize(size); }

void WindowElement::center() {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QPoint corner = screen.center() - QPoint(widget()->width() / 2, widget()->height() / 2);
  setLocation(corner.x(), corner.y());
}

void WindowElement::present() {
  if (!place_) center();
  static_cast<QDialog*>(widget())->setModal(true);
  widget()->show();
  if (!widget()->focusWidget()) static_cast<DialogWidget*>(widget())->attendFirst();
  widget()->activateWindow();
  // The attention of the keyboard shows from the start, not from the first key on. Showing a window resets this.
  widget()->setAttribute(Qt::WA_KeyboardFocusChange);
}

void WindowElement::run() {
  open_ = true;
  face_.runDialog(*this);
  widget()->hide();
}

void WindowElement::finish() {
  open_ = false;
  emit finished();
}

}  // namespace quiltor::standalone
