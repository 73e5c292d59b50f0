#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/scripting/elements/host_rules.h"
#include "standalone/scripting/elements/user_interface.h"
#include "standalone/scripting/files/host_files.h"

namespace quiltor::standalone {

// One line for an error of a script. Where a script calls a function that an object of the host does not have, the
// engine wraps the host's message into its own.
[[nodiscard]] std::string describeError(const QString& text);

// All that the modules in environment/ reach of this program.
class NativeHost : public QObject {
  Q_OBJECT
  Q_PROPERTY(QObject* files READ filesObject CONSTANT)
  Q_PROPERTY(QObject* ui READ uiObject CONSTANT)
  Q_PROPERTY(QObject* rules READ rulesObject CONSTANT)

 public:
  NativeHost(Face& face, QJSEngine& engine) : ui_(face, engine) {}

  [[nodiscard]] HostFiles& files() { return files_; }
  [[nodiscard]] UserInterface& ui() { return ui_; }
  [[nodiscard]] HostRules& rules() { return rules_; }
  [[nodiscard]] QObject* filesObject() { return &files_; }
  [[nodiscard]] QObject* uiObject() { return &ui_; }
  [[nodiscard]] QObject* rulesObject() { return &rules_; }
  // What went wrong in scripts where the host went on; each is told once.
  [[nodiscard]] const std::vector<std::string>& complaints() const { return complaints_; }
  void printTo(std::function<void(const QString&)> print) { print_ = std::move(print); }

  Q_INVOKABLE void complain(const QString& text);
  Q_INVOKABLE void print(const QString& text) const;
  Q_INVOKABLE void sleep(double milliseconds) const;
  // Null for a variable that is not set.
  Q_INVOKABLE QJSValue environmentVariable(const QString& name) const;

 private:
  HostFiles files_;
  UserInterface ui_;
  HostRules rules_;
  std::vector<std::string> complaints_;
  std::function<void(const QString&)> print_;
};

}  // namespace quiltor::standalone
