#include "standalone/scripting/elements/window_face.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <string>

#include "platform/scratch_folder.h"
#include "standalone/scripting/application.h"
#include "standalone/scripting/script_engine.h"

namespace quiltor::standalone {
namespace {

// The face of a person, with this test in the place of the person: what is done happens while a window waits for it.
class WindowFaceTest : public testing::Test {
 protected:
  WindowFaceTest() { startApplication(Screen::None, 1); }

  static void whenOpen(const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, [act] {
      QWidget* const window = QApplication::activeModalWidget();
      ASSERT_NE(window, nullptr);
      act(*window);
    });
  }

  static void pressEscape(QWidget& window) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&window, &press);
  }

  std::string run(const std::string& script) {
    ScriptEngine engine(face);
    const ScriptOutcome outcome = engine.run(script);
    EXPECT_EQ(outcome.errorText, "");
    return outcome.result;
  }

  WindowFace face;
};

TEST_F(WindowFaceTest, ADialogStaysOpenUntilAPersonClosesIt) {
  whenOpen([](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Test");
    EXPECT_TRUE(window.isVisible());
    EXPECT_NE(window.focusWidget(), nullptr);
    pressEscape(window);
  });
  EXPECT_EQ(run("var w = new Window('dialog', 'Test'); w.add('button', undefined, 'A'); w.show()"), "2");
}

TEST_F(WindowFaceTest, ADialogThatItsOnShowClosesNeverOpens) {
  EXPECT_EQ(run("var w = new Window('dialog', 'Test'); w.onShow = function () { w.close(4); }; w.show()"), "4");
}

TEST_F(WindowFaceTest, AnAlertShowsItsTextAsItIs) {
  whenOpen([](QWidget& window) {
    const auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_EQ(box.text(), "<b>text</b>");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    pressEscape(window);
  });
  EXPECT_EQ(run("alert('<b>text</b>'); 'done'"), "done");
}

TEST_F(WindowFaceTest, AQuestionIsAnswered) {
  whenOpen([](QWidget& window) { dynamic_cast<QMessageBox&>(window).button(QMessageBox::Yes)->click(); });
  EXPECT_EQ(run("confirm('Sure?', true)"), "true");
}

TEST_F(WindowFaceTest, AChooserStartsAtItsFolder) {
  const ScratchFolder folder;
  whenOpen([&folder](QWidget& window) {
    EXPECT_EQ(dynamic_cast<QFileDialog&>(window).directory().path().toStdString(), folder.path());
    pressEscape(window);
  });
  EXPECT_EQ(run("String(new Folder('" + folder.path() + "').selectDlg('Which?'))"), "null");
}

TEST_F(WindowFaceTest, AChooserShowsTheFilesOfItsFilter) {
  whenOpen([](QWidget& window) {
    auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.nameFilters(), QStringList("images (*.png *.jp*)"));
    dialog.reject();
  });
  EXPECT_EQ(run("String(File.openDialog('Which?', 'images:*.png;*.jp*'))"), "null");
}

}  // namespace
}  // namespace quiltor::standalone
