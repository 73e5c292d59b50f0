#pragma once

#include <QString>
#include <QStringList>
#include <deque>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/scripting/automation/automation_script.h"
#include "standalone/scripting/automation/automation_state.h"
#include "standalone/scripting/automation/steps.h"
#include "standalone/scripting/elements/face.h"

namespace quiltor::standalone {

// Plays the person by the steps of an automation. What is told or asked is printed and kept. After the first step that
// cannot be done nothing more is: dialogs are closed, questions are cancelled, and failure() says what was wrong.
class HeadlessFace : public Face {
 public:
  // `name` stands before the line of a step that fails.
  HeadlessFace(std::string name, std::ostream& out) : name_(std::move(name)), state_{.out = out} {}

  // Reads the steps; those before the first dialog are done now.
  void start(const std::string& steps, HostFiles& files, HostRules& rules);
  // A script has ended: steps that need no dialog are done.
  void scriptEnded(const std::string& result);
  // The line of the step that could not be done. Empty: none.
  [[nodiscard]] const std::string& failure() const { return failure_; }
  // The same for steps that nothing is left to do for.
  [[nodiscard]] std::string leftover() const;
  // Saves a picture of the first dialog as it opens; without steps nothing else is done with it.
  void photograph(const std::string& file) { photograph_ = file; }

  void runDialog(WindowElement& window) override;
  void alert(const QString& message, const QString& title, bool isError) override;
  bool confirm(const QString& message, const QString& title, bool noIsDefault) override;
  std::optional<QString> prompt(const QString& message, const QString& preset, const QString& title) override;
  QString chooseFolder(const QString& prompt, const QString& start) override;
  QStringList chooseFiles(const FileQuestion& question) override;
  QString chooseNewFile(const FileQuestion& question) override;
  bool execute(const QString& diskPath) override;

 private:
  // Does the next step when its time is one of these; false when it is not, or none is left.
  bool advance(std::initializer_list<StepTime> times, WindowElement* window);
  void fail(const std::string& text);
  void say(const QString& text);
  QStringList takePaths(const char* chooser, const QString& prompt, const QString& start);
  // Empty when nobody has prepared one, which is a failure.
  std::vector<StepWord> takeReply(const char* box, const QString& message);

  std::string name_;
  AutomationState state_;
  std::deque<AutomationStep> steps_;
  int line_ = 0;  // of the step that is being done
  std::string failure_;
  std::string photograph_;
};

}  // namespace quiltor::standalone
