#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace quiltor::standalone {

class WindowElement;

// Whoever sits before the dialogs: a person with a screen, or an automation. All calls block until there is an answer.
class Face {
 public:
  struct FileQuestion {
    QString prompt;
    QString folder;       // on disk, where to start; empty: anywhere
    QStringList filters;  // "images (*.png *.jp*)"
    bool several = false;
  };

  virtual ~Face() = default;

  // Shows the laid-out window until it is no longer open.
  virtual void runDialog(WindowElement& window) = 0;
  virtual void alert(const QString& message, const QString& title, bool isError) = 0;
  virtual bool confirm(const QString& message, const QString& title, bool noIsDefault) = 0;
  virtual std::optional<QString> prompt(const QString& message, const QString& preset, const QString& title) = 0;
  // Paths on disk; empty when the person cancels.
  virtual QString chooseFolder(const QString& prompt, const QString& start) = 0;
  virtual QStringList chooseFiles(const FileQuestion& question) = 0;
  virtual QString chooseNewFile(const FileQuestion& question) = 0;
  // Opens a file or folder as a double click would.
  virtual bool execute(const QString& diskPath) = 0;
};

}  // namespace quiltor::standalone
