#include "standalone/scripting/elements/window_face.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QUrl>

#include "standalone/scripting/elements/window_element.h"

namespace quiltor::standalone {
namespace {

constexpr const char* kTitle = "Quiltor";

QString titleOr(const QString& title) { return title.isEmpty() ? kTitle : title; }

QString filterOf(const Face::FileQuestion& question) { return question.filters.join(";;"); }

}  // namespace

void WindowFace::runDialog(WindowElement& window) {
  window.present();
  QEventLoop loop;
  QObject::connect(&window, &WindowElement::finished, &loop, &QEventLoop::quit);
  if (window.isOpen()) loop.exec();
}

void WindowFace::alert(const QString& message, const QString& title, bool isError) {
  QMessageBox box(isError ? QMessageBox::Critical : QMessageBox::Information, titleOr(title), message, QMessageBox::Ok,
                  QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

bool WindowFace::confirm(const QString& message, const QString& title, bool noIsDefault) {
  QMessageBox box(QMessageBox::Question, titleOr(title), message, QMessageBox::Yes | QMessageBox::No,
                  QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(noIsDefault ? QMessageBox::No : QMessageBox::Yes);
  return box.exec() == QMessageBox::Yes;
}

std::optional<QString> WindowFace::prompt(const QString& message, const QString& preset, const QString& title) {
  bool accepted = false;
  const QString text = QInputDialog::getText(QApplication::activeWindow(), titleOr(title), message, QLineEdit::Normal,
                                             preset, &accepted);
  return accepted ? std::optional(text) : std::nullopt;
}

QString WindowFace::chooseFolder(const QString& prompt, const QString& start) {
  return QFileDialog::getExistingDirectory(QApplication::activeWindow(), titleOr(prompt), start);
}

QStringList WindowFace::chooseFiles(const FileQuestion& question) {
  QWidget* const above = QApplication::activeWindow();
  if (question.several)
    return QFileDialog::getOpenFileNames(above, titleOr(question.prompt), question.folder, filterOf(question));
  const QString file =
      QFileDialog::getOpenFileName(above, titleOr(question.prompt), question.folder, filterOf(question));
  return file.isEmpty() ? QStringList() : QStringList(file);
}

QString WindowFace::chooseNewFile(const FileQuestion& question) {
  return QFileDialog::getSaveFileName(QApplication::activeWindow(), titleOr(question.prompt), question.folder,
                                      filterOf(question));
}

bool WindowFace::execute(const QString& diskPath) { return QDesktopServices::openUrl(QUrl::fromLocalFile(diskPath)); }

}  // namespace quiltor::standalone
