#pragma once

#include <QApplication>
#include <memory>
#include <string>
#include <vector>

#include "standalone/scripting/automation/headless_face.h"
#include "standalone/scripting/elements/window_face.h"
#include "standalone/scripting/runner/dialog_runner.h"
#include "standalone/scripting/script_engine.h"

namespace quiltor::standalone {

// The runner: an engine and the face that its options ask for.
class Dialogs : public DialogRunner {
 public:
  explicit Dialogs(const DialogOptions& options);

  ScriptOutcome run(const std::string& script) override;
  [[nodiscard]] std::vector<std::string> complaints() const override;

 private:
  std::unique_ptr<HeadlessFace> headless_;  // null before a person
  WindowFace window_;
  ScriptEngine engine_;
  std::vector<std::string> scriptErrors_;
};

}  // namespace quiltor::standalone
