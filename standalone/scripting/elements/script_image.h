#pragma once

#include <QImage>
#include <QObject>
#include <QString>

namespace quiltor::standalone {

// A picture that a script has loaded to show it on a control. Owned by the script's engine.
class ScriptImage : public QObject {
  Q_OBJECT
  Q_PROPERTY(int width READ width CONSTANT)  // of the file's picture
  Q_PROPERTY(int height READ height CONSTANT)
  Q_PROPERTY(QString path READ path CONSTANT)      // on disk
  Q_PROPERTY(QString format READ format CONSTANT)  // "PNG" or "JPEG"

 public:
  // Null when the file is no PNG or JPEG, or is damaged, or is too large to be held.
  static ScriptImage* load(const QString& diskPath);

  [[nodiscard]] int width() const { return size_.width(); }
  [[nodiscard]] int height() const { return size_.height(); }
  [[nodiscard]] const QString& path() const { return path_; }
  [[nodiscard]] const QString& format() const { return format_; }

  // The picture scaled to a size in the pixels of the screen.
  [[nodiscard]] QImage scaledTo(QSize pixels);

 private:
  ScriptImage() = default;

  QString path_;
  QString format_;
  QSize size_;
  QImage picture_;  // reduced when the file's is large: a page of the gallery shows 35 of them, small
  QImage scaled_;   // the last answer
};

}  // namespace quiltor::standalone
