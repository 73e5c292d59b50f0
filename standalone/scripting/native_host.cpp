#include "standalone/scripting/native_host.h"

#include <QRegularExpression>
#include <QThread>
#include <algorithm>

namespace quiltor::standalone {

std::string describeError(const QString& text) {
  static const QRegularExpression wrapped(
      "Property '[^']*' of object (TypeError: .* has no property \"[^\"]*\") is not a function");
  return text.simplified()
      .replace(wrapped, "\\1")
      .remove(QRegularExpression("^TypeError: (?=TypeError: )"))
      .toStdString();
}

void NativeHost::complain(const QString& text) {
  std::string line = describeError(text);
  if (std::ranges::find(complaints_, line) == complaints_.end()) complaints_.push_back(std::move(line));
}

void NativeHost::print(const QString& text) const {
  if (print_) print_(text);
}

void NativeHost::sleep(double milliseconds) const {
  if (milliseconds > 0) QThread::msleep(static_cast<unsigned long>(milliseconds));
}

QJSValue NativeHost::environmentVariable(const QString& name) const {
  const QByteArray key = name.toUtf8();
  return qEnvironmentVariableIsSet(key.constData()) ? QJSValue(qEnvironmentVariable(key.constData()))
                                                    : QJSValue(QJSValue::NullValue);
}

}  // namespace quiltor::standalone
