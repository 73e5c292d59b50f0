#include "standalone/scripting/automation/person_input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>

#include "standalone/scripting/automation/automation_error.h"
#include "standalone/scripting/elements/check_box_element.h"
#include "standalone/scripting/elements/drop_down_element.h"
#include "standalone/scripting/elements/edit_element.h"

namespace quiltor::standalone {
namespace {

void requireUsable(const Element& element) {
  if (!element.isShown()) throw AutomationError("the " + element.kind().toStdString() + " is hidden");
  if (!element.isUsable()) throw AutomationError("the " + element.kind().toStdString() + " is disabled");
}

void sendMouse(QWidget& widget, QEvent::Type type, QPoint at) {
  const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
  QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void sendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWidget> alive(&widget);
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    if (alive) QApplication::sendEvent(alive, &event);
  }
}

}  // namespace

void clickControl(Element& element) {
  constexpr int kInTick = 8;
  requireUsable(element);
  const QPointer<QWidget> widget(element.widget());
  // A tick takes no clicks to the right of its words.
  QPoint at = widget->rect().center();
  if (qobject_cast<CheckBoxElement*>(&element)) at.setX(kInTick);
  if (widget->focusPolicy() & Qt::ClickFocus) widget->setFocus(Qt::MouseFocusReason);
  sendMouse(*widget, QEvent::MouseButtonPress, at);
  if (widget) sendMouse(*widget, QEvent::MouseButtonRelease, at);
}

void chooseItem(Element& element, const QString& item) {
  auto* const list = qobject_cast<DropDownElement*>(&element);
  if (!list) throw AutomationError("expected a dropdownlist, not a " + element.kind().toStdString());
  requireUsable(element);
  const QStringList items = list->items();
  bool isNumber = false;
  const int number = item.startsWith('#') ? item.mid(1).toInt(&isNumber) - 1 : -1;
  const auto index = isNumber ? number : static_cast<int>(items.indexOf(item));
  if (index < 0 || index >= items.size()) {
    throw AutomationError("there is no item \"" + item.toStdString() + "\"; there are \"" +
                          items.join("\", \"").toStdString() + "\"");
  }
  list->comboBox().setFocus(Qt::MouseFocusReason);
  list->comboBox().setCurrentIndex(index);
  emit list->comboBox().activated(index);
}

void typeText(Element& element, const QString& text) {
  auto* const edit = qobject_cast<QLineEdit*>(element.widget());
  if (!edit) throw AutomationError("expected an edittext, not a " + element.kind().toStdString());
  requireUsable(element);
  edit->setFocus(Qt::MouseFocusReason);
  edit->selectAll();
  if (text.isEmpty()) sendKey(*edit, Qt::Key_Delete, Qt::NoModifier, "");
  for (const QChar character : text) sendKey(*edit, 0, Qt::NoModifier, character);
}

void setChecked(Element& element, bool on) {
  const auto* const box = qobject_cast<CheckBoxElement*>(&element);
  if (!box) throw AutomationError("expected a checkbox, not a " + element.kind().toStdString());
  requireUsable(element);
  if (box->value() != on) clickControl(element);
}

void pressKey(Element& window, const QString& name) {
  const QKeySequence sequence = QKeySequence::fromString(name, QKeySequence::PortableText);
  if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown) {
    throw AutomationError("\"" + name.toStdString() + "\" is no key; expected Enter, Escape, Tab, Space, Left, ...");
  }
  QWidget* const attended = window.widget()->focusWidget();
  const QString text = name.size() == 1 ? name : sequence[0].key() == Qt::Key_Space ? QString(" ") : QString();
  sendKey(attended ? *attended : *window.widget(), sequence[0].key(), sequence[0].keyboardModifiers(), text);
}

}  // namespace quiltor::standalone
