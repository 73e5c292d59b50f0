#include "standalone/scripting/files/text_encoding.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>

namespace quiltor::standalone {
namespace {

QByteArray encodeBytes(const QString& text, char16_t limit) {
  QByteArray bytes(text.size(), '?');
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].unicode() < limit) bytes[i] = static_cast<char>(text[i].unicode());
  }
  return bytes;
}

}  // namespace

QString decodeText(const QByteArray& bytes, const QString& encoding) {
  const QString name = encoding.toUpper();
  if (name == "UTF-8") return QString::fromUtf8(bytes);
  if (name == "UTF-16LE" || name == "UTF-16") return QStringDecoder(QStringDecoder::Utf16LE)(bytes);
  if (name == "UTF-16BE") return QStringDecoder(QStringDecoder::Utf16BE)(bytes);
  return QString::fromLatin1(bytes);
}

QByteArray encodeText(const QString& text, const QString& encoding) {
  const QString name = encoding.toUpper();
  if (name == "UTF-8") return text.toUtf8();
  if (name == "UTF-16LE" || name == "UTF-16") return QStringEncoder(QStringEncoder::Utf16LE)(text);
  if (name == "UTF-16BE") return QStringEncoder(QStringEncoder::Utf16BE)(text);
  return encodeBytes(text, name == "ASCII" ? 0x80 : 0x100);
}

bool isKnownEncoding(const QString& name) {
  const QStringList known{"UTF-8", "UTF-16", "UTF-16LE", "UTF-16BE", "ASCII", "BINARY", kSystemEncoding};
  return known.contains(name.toUpper());
}

}  // namespace quiltor::standalone
