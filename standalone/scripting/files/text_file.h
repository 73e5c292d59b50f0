#pragma once

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QString>

namespace quiltor::standalone {

// A file that a script has opened: text in one of the host's encodings. A position is one in the bytes for a script and
// one in the characters in here, since a file is read whole when it is opened.
class TextFile : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString encoding READ encoding CONSTANT)  // what was found when the file was opened
  Q_PROPERTY(bool eof READ eof)

 public:
  // Null and `error` when the file cannot be opened. Modes: "r" must exist; "w" creates or empties at once; "e" reads
  // and writes; "a" writes at the end.
  static TextFile* open(const QString& diskPath, const QString& mode, const QString& encoding, QString& error);

  // A byte order mark decides; else bytes that are not UTF-8 are in the system's code page.
  static QString detectEncoding(const QByteArray& bytes, const QString& assumed);

  [[nodiscard]] QString encoding() const { return encoding_; }
  // True once a reading attempt came to the end: not yet for an empty file that nobody has tried to read.
  [[nodiscard]] bool eof() const { return eof_; }

  Q_INVOKABLE QString read(double count);  // negative: all that is left
  // One line without its end, which is CR, LF, CR LF or LF CR.
  Q_INVOKABLE QString readLine();
  // Every "\n" of the text is written as `lineEnd`, but not in "BINARY". False when the system refused.
  Q_INVOKABLE bool write(const QString& text, const QString& lineEnd);
  Q_INVOKABLE bool seek(double bytes);
  Q_INVOKABLE double tell() const;
  // False when what was written could not be kept.
  Q_INVOKABLE bool close();

 private:
  TextFile() = default;
  void decode(const QByteArray& bytes);

  QFile file_;
  QString encoding_;
  QString text_;  // of a file that can be read
  qsizetype position_ = 0;
  qsizetype markBytes_ = 0;
  bool readable_ = false;
  bool eof_ = false;
};

}  // namespace quiltor::standalone
