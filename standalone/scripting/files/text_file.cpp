#include "standalone/scripting/files/text_file.h"

#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <memory>

#include "standalone/scripting/files/text_encoding.h"

namespace quiltor::standalone {
namespace {

constexpr qsizetype kTestedBytes = 2048;

struct Mark {
  const char* encoding;
  QByteArray bytes;
};

qsizetype markLength(const QByteArray& bytes, QString& encoding) {
  static const Mark marks[] = {{"UTF-8", "\xEF\xBB\xBF"}, {"UTF-16LE", "\xFF\xFE"}, {"UTF-16BE", "\xFE\xFF"}};
  for (const Mark& mark : marks) {
    if (!bytes.startsWith(mark.bytes)) continue;
    encoding = mark.encoding;
    return mark.bytes.size();
  }
  return 0;
}

// A tested part may end within a character, a file may not.
bool isUtf8(const QByteArray& bytes) {
  const bool isPart = bytes.size() > kTestedBytes;
  QStringDecoder decoder(QStringDecoder::Utf8,
                         isPart ? QStringDecoder::Flag::Default : QStringDecoder::Flag::Stateless);
  const QString ignored = decoder(bytes.left(kTestedBytes));
  return !decoder.hasError();
}

}  // namespace

QString TextFile::detectEncoding(const QByteArray& bytes, const QString& assumed) {
  QString encoding = assumed;
  if (assumed.toUpper() == "BINARY" || markLength(bytes, encoding) > 0) return encoding;
  if (assumed.toUpper().startsWith("UTF-16")) return encoding;
  return isUtf8(bytes) ? "UTF-8" : kSystemEncoding;
}

TextFile* TextFile::open(const QString& diskPath, const QString& mode, const QString& encoding, QString& error) {
  std::unique_ptr<TextFile> file(new TextFile);
  file->file_.setFileName(diskPath);
  file->encoding_ = encoding;
  const QFileInfo info(diskPath);
  const bool existed = info.exists();
  if (info.isDir()) {
    error = "I/O error";
    return nullptr;
  }
  if (mode == "r" && !existed) {
    error = "File or folder does not exist";
    return nullptr;
  }
  QIODevice::OpenMode flags = QIODevice::ReadOnly;
  if (mode == "w") flags = QIODevice::WriteOnly | QIODevice::Truncate;
  if (mode == "e") flags = QIODevice::ReadWrite;
  if (mode == "a") flags = QIODevice::WriteOnly | QIODevice::Append;
  if (!file->file_.open(flags)) {
    error = QFileInfo(info.path()).isDir() ? "Permission denied" : "File or folder does not exist";
    return nullptr;
  }
  file->readable_ = mode == "r" || mode == "e";
  if (file->readable_) file->decode(file->file_.readAll());
  return file.release();
}

void TextFile::decode(const QByteArray& bytes) {
  encoding_ = detectEncoding(bytes, encoding_);
  QString ofMark = encoding_;
  if (encoding_.toUpper() != "BINARY") markBytes_ = markLength(bytes, ofMark);
  text_ = decodeText(bytes.mid(markBytes_), encoding_);
}

QString TextFile::read(double count) {
  if (!readable_) return "";
  const qsizetype left = text_.size() - position_;
  const qsizetype wanted = count < 0 || count > static_cast<double>(left) ? left : static_cast<qsizetype>(count);
  const QString piece = text_.mid(position_, wanted);
  position_ += wanted;
  eof_ = position_ == text_.size();
  return piece;
}

QString TextFile::readLine() {
  if (!readable_) return "";
  qsizetype end = position_;
  while (end < text_.size() && text_[end] != '\r' && text_[end] != '\n') ++end;
  const QString line = text_.mid(position_, end - position_);
  position_ = end;
  if (end < text_.size()) {
    const bool isPair =
        end + 1 < text_.size() && (text_[end + 1] == '\r' || text_[end + 1] == '\n') && text_[end + 1] != text_[end];
    position_ += isPair ? 2 : 1;
  }
  eof_ = position_ == text_.size();
  return line;
}

bool TextFile::write(const QString& text, const QString& lineEnd) {
  QString converted = text;
  if (encoding_.toUpper() != "BINARY") converted.replace("\n", lineEnd);
  const QByteArray bytes = encodeText(converted, encoding_);
  if (readable_) {
    file_.seek(static_cast<qint64>(tell()));
    text_.replace(position_, converted.size(), converted);
    position_ += converted.size();
  }
  return file_.write(bytes) == bytes.size() && file_.flush();
}

bool TextFile::seek(double bytes) {
  if (!readable_) return file_.seek(static_cast<qint64>(bytes));
  const QByteArray all = encodeText(text_, encoding_);
  const auto wanted = static_cast<qsizetype>(bytes) - markBytes_;
  position_ = decodeText(all.left(std::max<qsizetype>(wanted, 0)), encoding_).size();
  eof_ = false;
  return wanted <= all.size();
}

double TextFile::tell() const {
  if (!readable_) return static_cast<double>(file_.pos());
  return static_cast<double>(markBytes_ + encodeText(text_.left(position_), encoding_).size());
}

bool TextFile::close() {
  file_.close();
  return file_.error() == QFileDevice::NoError;
}

}  // namespace quiltor::standalone
