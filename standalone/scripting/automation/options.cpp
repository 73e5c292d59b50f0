#include "standalone/scripting/automation/options.h"

#include <QDir>
#include <map>
#include <string>

#include "standalone/scripting/automation/automation_error.h"
#include "standalone/scripting/elements/host_rules.h"
#include "standalone/scripting/files/host_files.h"

namespace quiltor::standalone {
namespace {

template <class Value>
Value lookUp(const std::string& name, const std::string& word, const std::map<std::string, Value>& values) {
  const auto found = values.find(word);
  if (found != values.end()) return found->second;
  std::string known;
  for (const auto& [text, value] : values) known += (known.empty() ? "" : ", ") + text;
  throw AutomationError("option " + name + ": \"" + word + "\": expected " + known);
}

QString folderOf(const StepWord& word) {
  return QDir::cleanPath(QDir().absoluteFilePath(QString::fromStdString(word.text)));
}

}  // namespace

void setOption(const AutomationStep& step, AutomationState& state) {
  using Order = FileRules::Order;
  using Writing = FileRules::Writing;
  const std::string& name = step.words[0].text;
  const std::string& value = step.words[1].text;
  FileRules& rules = state.files->rules();
  if (name == "order") {
    rules.order = lookUp<Order>(name, value,
                                {{"name", Order::Name}, {"reversed", Order::Reversed}, {"shuffled", Order::Shuffled}});
  } else if (name == "writing") {
    rules.writing = lookUp<Writing>(
        name, value,
        {{"allowed", Writing::Allowed}, {"denied", Writing::Denied}, {"denied-late", Writing::DeniedLate}});
    state.rules->writingAllowed = rules.writing == Writing::Allowed;
  } else if (name == "unwritable") {
    rules.unwritable.append(folderOf(step.words[1]));
  } else if (name == "change-events") {
    state.rules->changeEventsBeforeShow = lookUp<bool>(name, value, {{"always", true}, {"shown", false}});
  } else if (name == "close-in-onshow") {
    state.rules->closeInOnShowIgnored = lookUp<bool>(name, value, {{"honoured", false}, {"ignored", true}});
  } else if (name == "windows-names") {
    state.files->useWindowsNames(folderOf(step.words[1]));
  } else {
    throw AutomationError("option " + name +
                          ": expected order, writing, unwritable, change-events, close-in-onshow or windows-names");
  }
}

}  // namespace quiltor::standalone
