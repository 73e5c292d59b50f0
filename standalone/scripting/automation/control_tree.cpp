#include "standalone/scripting/automation/control_tree.h"

#include <QStringList>

#include "standalone/scripting/elements/check_box_element.h"
#include "standalone/scripting/elements/drop_down_element.h"

namespace quiltor::standalone {
namespace {

QString quoted(QString text) {
  return '"' + text.replace('\\', "\\\\").replace('"', "\\\"").replace('\n', "\\n") + '"';
}

void describeList(const DropDownElement& list, QStringList& words) {
  words.append(QString("items=%1").arg(list.items().size()));
  if (list.current() >= 0) words.append("selected=" + quoted(list.items()[list.current()]));
}

void describeKind(const Element& element, QStringList& words) {
  if (const auto* list = qobject_cast<const DropDownElement*>(&element)) describeList(*list, words);
  if (const auto* box = qobject_cast<const CheckBoxElement*>(&element)) words.append(box->value() ? "on" : "off");
  if (!element.imagePath().isEmpty()) words.append("image=" + quoted(element.imagePath()));
  if (!element.drawn().isEmpty()) words.append("drawn=" + quoted(element.drawn().join(", ")));
}

void describeAll(const Element& element, int depth, QString& text) {
  text += QString(2 * depth, ' ') + describeControl(element) + '\n';
  for (const Element* child : element.children()) describeAll(*child, depth + 1, text);
}

}  // namespace

QString describeControl(const Element& element) {
  const QRect place = element.placeInWindow();
  QStringList words{element.kind()};
  if (!element.name().isEmpty()) words.append("@" + element.name());
  if (!element.text().isEmpty()) words.append(quoted(element.text()));
  words.append(QString("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height()));
  describeKind(element, words);
  if (!element.isShown()) words.append("hidden");
  if (!element.isEnabled()) words.append("disabled");
  if (element.isFocused()) words.append("focused");
  return words.join(' ');
}

QString controlTree(const Element& window) {
  QString text;
  describeAll(window, 0, text);
  return text;
}

}  // namespace quiltor::standalone
