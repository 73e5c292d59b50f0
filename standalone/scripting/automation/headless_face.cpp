#include "standalone/scripting/automation/headless_face.h"

#include <QApplication>
#include <QDir>
#include <algorithm>

#include "standalone/scripting/automation/automation_error.h"
#include "standalone/scripting/elements/window_element.h"

namespace quiltor::standalone {

void HeadlessFace::start(const std::string& steps, HostFiles& files, HostRules& rules) {
  state_.files = &files;
  state_.rules = &rules;
  try {
    for (AutomationStep& step : parseAutomation(steps)) {
      line_ = step.line;
      // Mistakes of writing are told before anything is done.
      static_cast<void>(stepTime(step));
      steps_.push_back(std::move(step));
    }
  } catch (const AutomationError& error) {
    const std::string text = error.what();
    steps_.clear();
    if (text.starts_with("line ")) {
      failure_ = name_ + ": " + text;
    } else {
      fail(text);
    }
    return;
  }
  while (advance({StepTime::AtOnce}, nullptr)) {
  }
}

void HeadlessFace::scriptEnded(const std::string& result) {
  state_.result = result;
  while (advance({StepTime::AtOnce, StepTime::Afterwards}, nullptr)) {
  }
}

std::string HeadlessFace::leftover() const {
  if (!failure_.empty() || steps_.empty()) return "";
  return name_ + ": line " + std::to_string(steps_.front().line) + ": " + steps_.front().verb +
         ": no dialog is open any more";
}

bool HeadlessFace::advance(std::initializer_list<StepTime> times, WindowElement* window) {
  if (!failure_.empty() || steps_.empty()) return false;
  if (std::ranges::find(times, stepTime(steps_.front())) == times.end()) return false;
  const AutomationStep step = steps_.front();
  steps_.pop_front();
  line_ = step.line;
  try {
    performStep(step, state_, window);
  } catch (const AutomationError& error) {
    fail(step.verb + ": " + error.what());
  }
  return failure_.empty();
}

void HeadlessFace::fail(const std::string& text) {
  if (failure_.empty()) failure_ = name_ + ": line " + std::to_string(line_) + ": " + text;
}

void HeadlessFace::say(const QString& text) { state_.out << text.toStdString() << '\n'; }

void HeadlessFace::runDialog(WindowElement& window) {
  window.present();
  QApplication::processEvents();
  if (!photograph_.empty()) {
    try {
      savePicture(window, photograph_);
    } catch (const AutomationError& error) {
      failure_ = error.what();
    }
    photograph_.clear();
    if (steps_.empty()) return window.finish();
  }
  while (window.isOpen()) {
    if (!advance({StepTime::AtOnce, StepTime::InDialog, StepTime::Afterwards}, &window)) {
      fail("the steps end while the dialog \"" + window.text().toStdString() + "\" is open");
      return window.finish();
    }
    QApplication::processEvents();
  }
}

void HeadlessFace::alert(const QString& message, const QString&, bool) {
  say("alert: " + message);
  state_.alerts.push_back(message.toStdString());
}

std::vector<StepWord> HeadlessFace::takeReply(const char* box, const QString& message) {
  say(QString(box) + ": " + message);
  if (state_.replies.empty()) {
    fail(std::string(box) + " \"" + message.toStdString() + "\": nobody replies; expected a step reply before");
    return {};
  }
  std::vector<StepWord> reply = state_.replies.front();
  state_.replies.pop_front();
  return reply;
}

bool HeadlessFace::confirm(const QString& message, const QString&, bool) {
  const auto reply = takeReply("confirm", message);
  return !reply.empty() && reply.front().text == "yes";
}

std::optional<QString> HeadlessFace::prompt(const QString& message, const QString&, const QString&) {
  const auto reply = takeReply("prompt", message);
  if (reply.empty() || reply.front().raw == "cancel") return std::nullopt;
  return QString::fromStdString(reply.front().text);
}

QStringList HeadlessFace::takePaths(const char* chooser, const QString& prompt, const QString& start) {
  say(QString(chooser) + ": " + prompt + (start.isEmpty() ? "" : " (from " + start + ")"));
  if (state_.answers.empty()) {
    fail(std::string(chooser) + " \"" + prompt.toStdString() + "\": nobody answers; expected a step answer before");
    return {};
  }
  const std::vector<StepWord> words = state_.answers.front();
  state_.answers.pop_front();
  if (words.size() == 1 && words.front().raw == "cancel") return {};
  QStringList paths;
  for (const StepWord& word : words) paths.append(QDir().absoluteFilePath(QString::fromStdString(word.text)));
  return paths;
}

QString HeadlessFace::chooseFolder(const QString& prompt, const QString& start) {
  return takePaths("choose folder", prompt, start).value(0);
}

QStringList HeadlessFace::chooseFiles(const FileQuestion& question) {
  const QString filters = question.filters.isEmpty() ? "" : " [" + question.filters.join("; ") + "]";
  return takePaths("choose file", question.prompt + filters, question.folder);
}

QString HeadlessFace::chooseNewFile(const FileQuestion& question) {
  return takePaths("choose new file", question.prompt, question.folder).value(0);
}

bool HeadlessFace::execute(const QString& diskPath) {
  say("open: " + diskPath);
  return true;
}

}  // namespace quiltor::standalone
