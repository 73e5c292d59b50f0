#include "standalone/scripting/elements/user_interface.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace quiltor::standalone {
namespace {

// The engine does not know how heavy pictures are: two pages of the gallery.
constexpr int kImagesBetweenCollections = 70;

}  // namespace

WindowElement* UserInterface::newWindow() { return new WindowElement(face_, this); }

ScriptImage* UserInterface::loadImage(const QString& path) {
  if (++imagesSinceCollection_ > kImagesBetweenCollections) {
    imagesSinceCollection_ = 0;
    engine_.collectGarbage();
  }
  return ScriptImage::load(path);
}

void UserInterface::alert(const QString& message, const QString& title, bool isError) {
  face_.alert(message, title, isError);
}

bool UserInterface::confirm(const QString& message, const QString& title, bool noIsDefault) {
  return face_.confirm(message, title, noIsDefault);
}

QJSValue UserInterface::prompt(const QString& message, const QString& preset, const QString& title) {
  const auto answer = face_.prompt(message, preset, title);
  return answer ? QJSValue(*answer) : QJSValue(QJSValue::NullValue);
}

QString UserInterface::chooseFolder(const QString& prompt, const QString& start) {
  return face_.chooseFolder(prompt, start);
}

QStringList UserInterface::chooseFiles(const QString& prompt, const QString& folder, const QStringList& filters,
                                       bool several) {
  return face_.chooseFiles({prompt, folder, filters, several});
}

QString UserInterface::chooseNewFile(const QString& prompt, const QString& folder, const QStringList& filters) {
  return face_.chooseNewFile({prompt, folder, filters, false});
}

QVariantList UserInterface::screens() const {
  QVariantList all;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect place = screen->geometry();
    all.append(
        QVariant(QVariantList{place.left(), place.top(), place.left() + place.width(), place.top() + place.height()}));
  }
  return all;
}

QStringList UserInterface::heldKeys() const {
  const Qt::KeyboardModifiers held = QGuiApplication::queryKeyboardModifiers();
  QStringList names;
  if (held & Qt::ShiftModifier) names.append("shift");
  if (held & Qt::AltModifier) names.append("alt");
  if (held & Qt::ControlModifier) names.append("ctrl");
  return names;
}

void UserInterface::removeWindows() {
  for (WindowElement* window : findChildren<WindowElement*>(Qt::FindDirectChildrenOnly)) delete window;
}

}  // namespace quiltor::standalone
