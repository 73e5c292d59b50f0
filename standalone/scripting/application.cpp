#include "standalone/scripting/application.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>

namespace quiltor::standalone {
namespace {

// Qt ends the process when it finds no display; what it says before is too long for a terminal.
void tellFailure(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs("quiltor: there is no display to open a window on; use --headless or --screenshot\n", stderr);
  std::_Exit(1);
}

QPalette darkPalette() {
  const QColor window(50, 50, 50), field(38, 38, 38), words(222, 222, 222), faint(128, 128, 128), accent(58, 132, 205);
  QPalette palette;
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, words);
  palette.setColor(QPalette::Base, field);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Text, words);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Button, QColor(66, 66, 66));
  palette.setColor(QPalette::ButtonText, words);
  palette.setColor(QPalette::Light, QColor(90, 90, 90));
  palette.setColor(QPalette::Midlight, QColor(78, 78, 78));
  palette.setColor(QPalette::Mid, QColor(92, 92, 92));
  palette.setColor(QPalette::Dark, QColor(28, 28, 28));
  palette.setColor(QPalette::Shadow, Qt::black);
  palette.setColor(QPalette::ToolTipBase, field);
  palette.setColor(QPalette::ToolTipText, words);
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

}  // namespace

void startApplication(Screen screen, double scale) {
  if (QApplication::instance()) return;
  if (screen == Screen::None) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (scale != 1) qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  const QtMessageHandler before = qInstallMessageHandler(tellFailure);
  static int argc = 1;
  static char name[] = "quiltor";
  static char* argv[] = {name, nullptr};
  // Never destroyed: Qt's own threads and the display's connection end with the process.
  new QApplication(argc, argv);
  qInstallMessageHandler(before);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(darkPalette());
  QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace quiltor::standalone
