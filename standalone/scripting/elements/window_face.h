#pragma once

#include "standalone/scripting/elements/face.h"

namespace quiltor::standalone {

// A person, with windows on the screen.
class WindowFace : public Face {
 public:
  void runDialog(WindowElement& window) override;
  void alert(const QString& message, const QString& title, bool isError) override;
  bool confirm(const QString& message, const QString& title, bool noIsDefault) override;
  std::optional<QString> prompt(const QString& message, const QString& preset, const QString& title) override;
  QString chooseFolder(const QString& prompt, const QString& start) override;
  QStringList chooseFiles(const FileQuestion& question) override;
  QString chooseNewFile(const FileQuestion& question) override;
  bool execute(const QString& diskPath) override;
};

}  // namespace quiltor::standalone
