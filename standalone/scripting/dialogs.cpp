#include "standalone/scripting/dialogs.h"

#include "standalone/scripting/application.h"

namespace quiltor::standalone {
namespace {

std::unique_ptr<HeadlessFace> headlessFace(const DialogOptions& options) {
  const bool isHeadless = options.steps || !options.screenshot.empty();
  startApplication(isHeadless ? Screen::None : Screen::Real, options.scale);
  if (!isHeadless) return nullptr;
  auto face = std::make_unique<HeadlessFace>(options.stepsName, *options.out);
  face->photograph(options.screenshot);
  return face;
}

}  // namespace

Dialogs::Dialogs(const DialogOptions& options)
    : headless_(headlessFace(options)), engine_(headless_ ? static_cast<Face&>(*headless_) : window_) {
  std::ostream& out = *options.out;
  engine_.host().printTo([&out](const QString& text) { out << text.toStdString() << '\n'; });
  if (headless_) headless_->start(options.steps.value_or(""), engine_.host().files(), engine_.host().rules());
}

ScriptOutcome Dialogs::run(const std::string& script) {
  // A step that cannot be done ends all: scripts would only run into questions that nobody answers.
  if (headless_ && !headless_->failure().empty()) return {.error = 1, .result = "", .errorText = headless_->failure()};
  ScriptOutcome outcome = engine_.run(script);
  if (outcome.error != 0) scriptErrors_.push_back("the script: " + outcome.errorText);
  if (headless_) headless_->scriptEnded(outcome.result);
  return outcome;
}

std::vector<std::string> Dialogs::complaints() const {
  std::vector<std::string> all = scriptErrors_;
  for (const std::string& text : engine_.host().complaints()) all.push_back("a dialog: " + text);
  if (!headless_) return all;
  if (!headless_->failure().empty()) all.push_back(headless_->failure());
  const std::string leftover = headless_->leftover();
  if (!leftover.empty()) all.push_back(leftover);
  return all;
}

}  // namespace quiltor::standalone
