#pragma once

#include <QDialog>

#include "standalone/scripting/elements/element.h"
#include "standalone/scripting/elements/face.h"

namespace quiltor::standalone {

// A dialog. What Enter, Escape and the title bar do is told to the script's object, which decides whether it closes.
class WindowElement : public Element {
  Q_OBJECT

 public:
  WindowElement(Face& face, QObject* owner);

  [[nodiscard]] bool isOpen() const { return open_; }
  void setText(const QString& text) override;
  void setLocation(int x, int y) override;
  [[nodiscard]] QList<int> bounds() const override;
  // For faces: puts the window on the screen.
  void present();
  // The close button of the title bar.
  void closeByTitleBar() { tell("titleclose"); }

  // Returns when the dialog is closed.
  Q_INVOKABLE void run();
  Q_INVOKABLE void finish();
  Q_INVOKABLE void center();

 signals:
  void finished();

 protected:
  void applyWindowSize(QSize size) override;

 private:
  friend class DialogWidget;

  Face& face_;
  bool open_ = false;
  std::optional<QPoint> place_;
};

}  // namespace quiltor::standalone
