#include "standalone/scripting/automation/steps.h"

#include <QDir>
#include <QSaveFile>
#include <cstddef>
#include <map>

#include "standalone/scripting/automation/automation_error.h"
#include "standalone/scripting/automation/control_search.h"
#include "standalone/scripting/automation/control_tree.h"
#include "standalone/scripting/automation/expectations.h"
#include "standalone/scripting/automation/options.h"
#include "standalone/scripting/automation/person_input.h"

namespace quiltor::standalone {
namespace {

struct Context {
  const AutomationStep& step;
  AutomationState& state;
  WindowElement* window;

  QString word(std::size_t index) const { return QString::fromStdString(step.words[index].text); }
  Element& control() const {
    const std::string& raw = step.words[0].raw;
    return findControl(*window, parseSelector(raw), raw);
  }
};

void setCheckedStep(const Context& context) {
  const QString value = context.word(1);
  if (value != "on" && value != "off") throw AutomationError("\"" + value.toStdString() + "\": expected on or off");
  setChecked(context.control(), value == "on");
}

void requireTitle(const Context& context) {
  const QString title = context.window->text();
  if (title == context.word(0)) return;
  throw AutomationError("the dialog that is open is \"" + title.toStdString() + "\"");
}

struct Verb {
  StepTime time;
  std::size_t minimumWords, maximumWords;
  const char* usage;
  void (*perform)(const Context&);
};

constexpr std::size_t kAny = 100;

const std::map<std::string, Verb>& verbs() {
  static const std::map<std::string, Verb> all{
      {"option", {StepTime::AtOnce, 2, 3, "option NAME VALUE", [](const Context& c) { setOption(c.step, c.state); }}},
      {"answer",
       {StepTime::AtOnce, 1, kAny, "answer PATH or answer cancel",
        [](const Context& c) { c.state.answers.push_back(c.step.words); }}},
      {"reply",
       {StepTime::AtOnce, 1, 1, "reply yes, no, cancel or \"TEXT\"",
        [](const Context& c) { c.state.replies.push_back(c.step.words); }}},
      {"print",
       {StepTime::AtOnce, 1, 1, "print \"TEXT\"",
        [](const Context& c) { c.state.out << c.step.words[0].text << '\n'; }}},
      {"dialog", {StepTime::InDialog, 1, 1, "dialog \"TITLE\"", requireTitle}},
      {"click", {StepTime::InDialog, 1, 1, "click CONTROL", [](const Context& c) { clickControl(c.control()); }}},
      {"choose",
       {StepTime::InDialog, 2, 2, "choose CONTROL \"ITEM\" or choose CONTROL #2",
        [](const Context& c) { chooseItem(c.control(), c.word(1)); }}},
      {"check", {StepTime::InDialog, 2, 2, "check CONTROL on or off", setCheckedStep}},
      {"type",
       {StepTime::InDialog, 2, 2, "type CONTROL \"TEXT\"", [](const Context& c) { typeText(c.control(), c.word(1)); }}},
      {"press", {StepTime::InDialog, 1, 1, "press KEY", [](const Context& c) { pressKey(*c.window, c.word(0)); }}},
      {"close", {StepTime::InDialog, 0, 0, "close", [](const Context& c) { c.window->closeByTitleBar(); }}},
      {"tree",
       {StepTime::InDialog, 0, 0, "tree",
        [](const Context& c) { c.state.out << controlTree(*c.window).toStdString(); }}},
      {"screenshot",
       {StepTime::InDialog, 1, 1, "screenshot FILE.png",
        [](const Context& c) { savePicture(*c.window, c.step.words[0].text); }}},
      {"expect",
       {StepTime::Afterwards, 1, kAny, "expect CONTROL STATE, expect alert \"TEXT\", ...",
        [](const Context& c) { expect(c.step, c.state, c.window); }}}};
  return all;
}

const Verb& findVerb(const AutomationStep& step) {
  const auto found = verbs().find(step.verb);
  if (found != verbs().end()) return found->second;
  std::string known;
  for (const auto& [name, verb] : verbs()) known += (known.empty() ? "" : ", ") + name;
  throw AutomationError("\"" + step.verb + "\" is no step; expected " + known);
}

}  // namespace

StepTime stepTime(const AutomationStep& step) {
  const Verb& verb = findVerb(step);
  if (step.words.size() < verb.minimumWords || step.words.size() > verb.maximumWords) {
    throw AutomationError("expected " + std::string(verb.usage));
  }
  return step.verb == "expect" && isAboutControl(step) ? StepTime::InDialog : verb.time;
}

void performStep(const AutomationStep& step, AutomationState& state, WindowElement* window) {
  findVerb(step).perform({step, state, window});
}

void savePicture(const WindowElement& window, const std::string& file) {
  const QString name = QString::fromStdString(file);
  QSaveFile target(name);
  if (target.open(QIODevice::WriteOnly) && window.widget()->grab().save(&target, "PNG") && target.commit()) return;
  throw AutomationError(file + ": cannot be written: " + target.errorString().toStdString());
}

}  // namespace quiltor::standalone
