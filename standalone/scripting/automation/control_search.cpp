#include "standalone/scripting/automation/control_search.h"

#include <QStringList>
#include <cstddef>
#include <vector>

#include "standalone/scripting/automation/automation_error.h"

namespace quiltor::standalone {
namespace {

bool matches(const Element& element, const ControlSelector& selector) {
  if (!selector.kind.empty() && element.kind().toStdString() != selector.kind) return false;
  if (!selector.name.empty() && element.name().toStdString() != selector.name) return false;
  return !selector.text || element.text().toStdString() == *selector.text;
}

void collect(const Element& in, const ControlSelector& selector, std::vector<Element*>& found) {
  for (Element* child : in.children()) {
    if (matches(*child, selector)) found.push_back(child);
    collect(*child, selector, found);
  }
}

// What a person who mistyped may have meant.
void collectTexts(const Element& in, QStringList& texts) {
  for (const Element* child : in.children()) {
    if (!child->text().isEmpty() && !texts.contains(child->text())) texts.append(child->text());
    collectTexts(*child, texts);
  }
}

std::string describeTexts(const Element& window) {
  constexpr qsizetype kMost = 12;
  QStringList texts;
  collectTexts(window, texts);
  const QString more = texts.size() > kMost ? "\", ..." : "\"";
  return QString('"' + texts.mid(0, kMost).join("\", \"") + more).toStdString();
}

}  // namespace

Element& findControl(Element& window, const ControlSelector& selector, const std::string& raw) {
  std::vector<Element*> found;
  collect(window, selector, found);
  const auto index = static_cast<std::size_t>(selector.number - 1);
  if (index < found.size()) return *found[index];
  if (!found.empty()) {
    throw AutomationError(raw + ": there are only " + std::to_string(found.size()) + " such controls");
  }
  throw AutomationError(raw + ": there is no such control; there are " + describeTexts(window));
}

}  // namespace quiltor::standalone
