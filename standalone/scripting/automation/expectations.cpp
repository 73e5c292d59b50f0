#include "standalone/scripting/automation/expectations.h"

#include "standalone/scripting/automation/automation_error.h"
#include "standalone/scripting/automation/control_search.h"
#include "standalone/scripting/automation/control_tree.h"
#include "standalone/scripting/elements/check_box_element.h"
#include "standalone/scripting/elements/drop_down_element.h"

namespace quiltor::standalone {
namespace {

void require(bool holds, const std::string& found) {
  if (!holds) throw AutomationError("it is " + found);
}

bool isPlain(const AutomationStep& step, std::size_t index, const char* word) {
  return step.words.size() > index && step.words[index].raw == word;
}

// The oldest alert that no step has expected.
void expectAlert(const AutomationStep& step, AutomationState& state) {
  if (step.words.size() != 2) throw AutomationError("expected expect alert \"TEXT\"");
  if (state.alerts.empty()) throw AutomationError("there was no alert");
  const std::string text = state.alerts.front();
  if (text != step.words[1].text) throw AutomationError("the alert was \"" + text + "\"");
  state.alerts.pop_front();
}

bool holdsValue(const Element& element, const std::string& what, const QString& value) {
  const auto* const list = qobject_cast<const DropDownElement*>(&element);
  if (what == "text") return element.text() == value;
  if (what == "items" && list) return QString::number(list->items().size()) == value;
  if (what == "selected" && list) return list->current() >= 0 && list->items()[list->current()] == value;
  if (what == "image") return element.imagePath() == value;
  throw AutomationError("\"" + what + "\": expected text, items, selected or image and a value for it");
}

bool holdsState(const Element& element, const std::string& state) {
  const auto* const box = qobject_cast<const CheckBoxElement*>(&element);
  if (state == "shown") return element.isShown();
  if (state == "hidden") return !element.isShown();
  if (state == "enabled") return element.isEnabled();
  if (state == "disabled") return !element.isEnabled();
  if (state == "focused") return element.isFocused();
  if (state == "on" && box) return box->value();
  if (state == "off" && box) return !box->value();
  throw AutomationError("\"" + state + "\": expected shown, hidden, enabled, disabled, focused, on or off");
}

void expectControl(const AutomationStep& step, WindowElement& window) {
  const std::string& raw = step.words[0].raw;
  const Element& element = findControl(window, parseSelector(raw), raw);
  const std::string& what = step.words.size() > 1 ? step.words[1].text : "shown";
  const bool holds = step.words.size() > 2 ? holdsValue(element, what, QString::fromStdString(step.words[2].text))
                                           : holdsState(element, what);
  require(holds, describeControl(element).toStdString());
}

}  // namespace

bool isAboutControl(const AutomationStep& step) {
  const bool isOther = isPlain(step, 0, "alert") || isPlain(step, 0, "closed") || isPlain(step, 0, "result") ||
                       (isPlain(step, 0, "no") && isPlain(step, 1, "alert"));
  return !isOther;
}

void expect(const AutomationStep& step, AutomationState& state, WindowElement* window) {
  if (isAboutControl(step)) {
    expectControl(step, *window);
  } else if (isPlain(step, 0, "alert")) {
    expectAlert(step, state);
  } else if (isPlain(step, 0, "no")) {
    if (!state.alerts.empty()) throw AutomationError("there was the alert \"" + state.alerts.front() + "\"");
  } else if (isPlain(step, 0, "closed")) {
    if (window) throw AutomationError("the dialog \"" + window->text().toStdString() + "\" is open");
  } else if (window || step.words.size() != 2) {
    throw AutomationError("expected expect result \"TEXT\" when the script has ended");
  } else {
    require(state.result == step.words[1].text, "\"" + state.result + "\"");
  }
}

}  // namespace quiltor::standalone
