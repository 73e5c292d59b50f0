#include "standalone/scripting/script_engine.h"

#include <QStringList>
#include <stdexcept>

#include "standalone/scripting/language/newer_syntax.h"

// Of a static library a resource is part of the program only when somebody asks for it.
static void useEnvironment() { Q_INIT_RESOURCE(environment); }

namespace quiltor::standalone {
namespace {

constexpr A_Err kScriptError = 1;
constexpr const char* kScriptName = "script.jsx";

ScriptOutcome failure(int line, const std::string& text) {
  return {kScriptError, "", (line > 0 ? "line " + std::to_string(line) + ": " : "") + text};
}

// The innermost place in the script itself, not in the host's objects. An entry is "function:line:column:file".
int lineInScript(const QStringList& trace) {
  for (const QString& entry : trace) {
    const QStringList parts = entry.split(':');
    if (parts.size() >= 4 && entry.endsWith(kScriptName)) return parts[1].toInt();
  }
  return 0;
}

}  // namespace

ScriptEngine::ScriptEngine(Face& face) : host_(face, engine_) {
  useEnvironment();
  QJSEngine::setObjectOwnership(&host_, QJSEngine::CppOwnership);
  for (QObject* part : {host_.filesObject(), host_.uiObject(), host_.rulesObject()}) {
    QJSEngine::setObjectOwnership(part, QJSEngine::CppOwnership);
  }
  engine_.globalObject().setProperty("nativeHost", engine_.newQObject(&host_));
  engine_.globalObject().setProperty("hostGlobal", engine_.globalObject());
  QJSValue environment = engine_.importModule(":/environment/main.mjs");
  if (engine_.hasError()) environment = engine_.catchError();
  if (environment.isError()) {
    throw std::logic_error("the scripting environment: " + environment.toString().toStdString() + " " +
                           environment.property("fileName").toString().toStdString() + ":" +
                           environment.property("lineNumber").toString().toStdString());
  }
}

ScriptEngine::~ScriptEngine() { host_.ui().removeWindows(); }

ScriptOutcome ScriptEngine::run(const std::string& script) {
  if (const auto fault = findNewerSyntax(script)) {
    return failure(fault->line, "SyntaxError: the host's language does not have " + fault->text);
  }
  QStringList trace;
  const QJSValue value = engine_.evaluate(QString::fromStdString(script), kScriptName, 1, &trace);
  ScriptOutcome outcome;
  if (!trace.isEmpty()) {
    outcome = failure(lineInScript(trace), describeError(value.toString()));
  } else if (!value.isUndefined()) {
    outcome.result = value.toString().toStdString();
  }
  host_.ui().removeWindows();
  return outcome;
}

}  // namespace quiltor::standalone
