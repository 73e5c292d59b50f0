#pragma once

#include <QJSEngine>
#include <string>

#include "standalone/host/services/script_runner.h"
#include "standalone/scripting/native_host.h"

namespace quiltor::standalone {

// The scripting host: an engine whose language is cut down to the third edition of ECMAScript, with the host's objects.
// As in the host there is one for all scripts: what one leaves in the global object the next one finds. Needs a
// QApplication; all of it belongs on the thread of that.
class ScriptEngine {
 public:
  explicit ScriptEngine(Face& face);
  ~ScriptEngine();
  ScriptEngine(const ScriptEngine&) = delete;
  ScriptEngine& operator=(const ScriptEngine&) = delete;

  // Runs a script, UTF-8, until its dialogs are closed. The result is the value of the last statement as text, empty
  // for undefined. What the language of the host does not have is a syntax error.
  ScriptOutcome run(const std::string& script);

  [[nodiscard]] NativeHost& host() { return host_; }
  [[nodiscard]] const NativeHost& host() const { return host_; }

 private:
  QJSEngine engine_;
  NativeHost host_;
};

}  // namespace quiltor::standalone
