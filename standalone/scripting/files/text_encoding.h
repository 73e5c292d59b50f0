#pragma once

#include <QByteArray>
#include <QString>

namespace quiltor::standalone {

// The encodings by which scripts open files. A name that is none of these counts as the code page of the system, which
// is not UTF-8, as on the systems of the host: a script that forgets to name its encoding shows.
//
//   "UTF-8", "UTF-16LE", "UTF-16BE" ("UTF-16" is little-endian), "ASCII", "BINARY" (a character per byte)
[[nodiscard]] QString decodeText(const QByteArray& bytes, const QString& encoding);
// What the encoding does not have becomes "?".
[[nodiscard]] QByteArray encodeText(const QString& text, const QString& encoding);

[[nodiscard]] bool isKnownEncoding(const QString& name);

inline constexpr const char* kSystemEncoding = "CP1252";

}  // namespace quiltor::standalone
