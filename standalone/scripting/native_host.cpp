#include "standalone/scripting/native_host.h"

#include <QThread>
#include <algorithm>

namespace quiltor::standalone {

void NativeHost::complain(const QString& text) {
  std::string line = text.simplified().toStdString();
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
