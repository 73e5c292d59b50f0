#pragma once

#include <QJSEngine>
#include <QObject>
#include <QStringList>
#include <QVariantList>

#include "standalone/scripting/elements/face.h"
#include "standalone/scripting/elements/script_image.h"
#include "standalone/scripting/elements/window_element.h"

namespace quiltor::standalone {

// What the scripts' windows and message boxes reach the face through. Paths are on disk.
class UserInterface : public QObject {
  Q_OBJECT

 public:
  UserInterface(Face& face, QJSEngine& engine) : face_(face), engine_(engine) {}

  Q_INVOKABLE quiltor::standalone::WindowElement* newWindow();
  // Null for what is no PNG or JPEG. The script's engine owns what it gets.
  Q_INVOKABLE quiltor::standalone::ScriptImage* loadImage(const QString& path);

  Q_INVOKABLE void alert(const QString& message, const QString& title, bool isError);
  Q_INVOKABLE bool confirm(const QString& message, const QString& title, bool noIsDefault);
  Q_INVOKABLE QJSValue prompt(const QString& message, const QString& preset, const QString& title);
  Q_INVOKABLE QString chooseFolder(const QString& prompt, const QString& start);
  Q_INVOKABLE QStringList chooseFiles(const QString& prompt, const QString& folder, const QStringList& filters,
                                      bool several);
  Q_INVOKABLE QString chooseNewFile(const QString& prompt, const QString& folder, const QStringList& filters);
  Q_INVOKABLE bool execute(const QString& path) { return face_.execute(path); }
  // [left, top, right, bottom] of each screen, the primary one first.
  Q_INVOKABLE QVariantList screens() const;
  // "shift", "alt", "ctrl" as they are held down.
  Q_INVOKABLE QStringList heldKeys() const;

  // Windows that a script has left behind.
  void removeWindows();

 private:
  Face& face_;
  QJSEngine& engine_;
  int imagesSinceCollection_ = 0;
};

}  // namespace quiltor::standalone
