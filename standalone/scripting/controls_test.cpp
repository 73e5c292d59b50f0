#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class Controls : public ScriptTest {
 protected:
  // Shows a dialog made by `before`; `log` is the result.
  std::string show(const std::string& before, const std::string& steps) {
    return run("var log = [], w = new Window('dialog', 'Test');" + before + "; w.show(); log.join(' ')", steps);
  }
};

TEST_F(Controls, AButtonsHandlerGetsTheButtonAsThisAndNothingElse) {
  EXPECT_EQ(show("var b = w.add('button', undefined, 'A'); b.onClick = function () { log.push(this === b, "
                 "arguments.length); }",
                 "click \"A\"\nclose"),
            "true 0");
}

TEST_F(Controls, ABoxTogglesBeforeItTells) {
  EXPECT_EQ(
      show("var b = w.add('checkbox', undefined, 'A'); b.value = true; b.onClick = function () { log.push(b.value); }",
           "expect \"A\" on\nclick \"A\"\ncheck \"A\" off\ncheck \"A\" on\nclose"),
      "false true");
}

TEST_F(Controls, ALabelHasNoOnClickButItsListenersHear) {
  EXPECT_EQ(show("var t = w.add('statictext', undefined, 'A'); t.onClick = function () { log.push('never'); };"
                 "function note(e) { log.push(e.type, e.target === t); }"
                 "t.addEventListener('click', note); t.addEventListener('mousedown', note); "
                 "t.addEventListener('mouseup', note)",
                 "click \"A\"\nclose"),
            "mousedown true mouseup true click true");
}

TEST_F(Controls, ListenersOfContainersHearTooUnlessTheEventIsStopped) {
  const std::string group =
      "var g = w.add('group'), t = g.add('statictext', undefined, 'A');"
      "g.addEventListener('click', function (e) { log.push(e.currentTarget === g); });";
  EXPECT_EQ(show(group, "click \"A\"\nclose"), "true");
  EXPECT_EQ(show(group + "t.addEventListener('click', function (e) { e.stopPropagation(); })", "click \"A\"\nclose"),
            "");
}

TEST_F(Controls, ListenersCanBeTakenAway) {
  EXPECT_EQ(show("var t = w.add('statictext', undefined, 'A'); function f() { log.push('heard'); }"
                 "t.addEventListener('click', f); t.removeEventListener('click', f)",
                 "click \"A\"\nclose"),
            "");
}

TEST_F(Controls, ThatAreDisabledOrHiddenCannotBeClicked) {
  const std::string two =
      "var a = w.add('button', undefined, 'A'); a.enabled = false;"
      "var b = w.add('group').add('button', undefined, 'B'); b.parent.visible = false;";
  EXPECT_THAT(complaint("var w = new Window('dialog');" + two + "w.show()", "click \"A\""),
              HasSubstr("line 1: click: the button is disabled"));
  EXPECT_THAT(complaint("var w = new Window('dialog');" + two + "w.show()", "expect \"B\" hidden\nclick \"B\""),
              HasSubstr("line 2: click: the button is hidden"));
}

TEST_F(Controls, ThatAreHiddenKeepTheirPlace) {
  EXPECT_EQ(show("var a = w.add('button', undefined, 'A'), b = w.add('button', undefined, 'B'); a.visible = false;"
                 "w.onShow = function () { log.push(b.location.y > a.location.y); }",
                 "close"),
            "true");
}

TEST_F(Controls, AnEntryTellsOfEachKeyAndOfItsEnd) {
  EXPECT_EQ(show("var e = w.add('edittext', undefined, 'old'); e.onChanging = function () { log.push(e.text); };"
                 "e.onChange = function () { log.push('end'); }",
                 "type edittext \"ab\"\nexpect edittext text \"ab\"\npress Enter\nclose"),
            "a ab end");
}

TEST_F(Controls, NotifyDoesAsAPersonWould) {
  EXPECT_EQ(show("var b = w.add('button', undefined, 'A'); b.onClick = function () { log.push('clicked'); };"
                 "w.onShow = function () { b.notify(); b.notify('onClick'); }",
                 "close"),
            "clicked clicked");
}

TEST_F(Controls, SizesAndPlacesAnswerByNameAndIndexAndChangeTheControl) {
  EXPECT_EQ(show("var b = w.add('button', undefined, 'A'); b.preferredSize = [120, 40]; b.preferredSize.height = 30;"
                 "w.onShow = function () { log.push(b.size[0], b.size.height, b.bounds.right - b.bounds.left);"
                 "b.size = {width: 50, height: 20}; log.push(b.size); b.location.x = 3; log.push(b.location) }",
                 "close"),
            "120 30 120 50,20 3,15");
}

TEST_F(Controls, SizesThatAreNoneAreRefused) {
  const std::string start = "var b = new Window('dialog').add('button');";
  EXPECT_THAT(runOutcome(start + "b.preferredSize = [1]").errorText,
              EndsWith("preferredSize: expected [width, height]"));
  EXPECT_THAT(runOutcome(start + "b.alignment = 'lef'").errorText, EndsWith("alignment: \"lef\" is no alignment"));
  EXPECT_THAT(runOutcome(start + "b.preferredSize.wdth = 1").errorText, EndsWith("Dimension has no property \"wdth\""));
}

TEST_F(Controls, MarginsAreOneNumberOrFour) {
  EXPECT_EQ(run("var w = new Window('dialog'); w.margins = 5; w.margins.top = 7; w.margins"), "5,7,5,5");
  EXPECT_EQ(run("var w = new Window('dialog'); w.margins = [1, 2, 3, 4]; w.margins.bottom"), "4");
}

TEST_F(Controls, AGroupIsARowAndAPanelAColumn) {
  EXPECT_EQ(run("var w = new Window('dialog'), g = w.add('group'), p = w.add('panel', undefined, 'Title');"
                "[w.orientation, g.orientation, p.orientation, p.text, g.margins, p.margins]"),
            "column,row,column,Title,0,0,0,0,10,10,10,10");
  EXPECT_THAT(runOutcome("new Window('dialog').add('group').text").errorText,
              EndsWith("Group has no property \"text\""));
}

TEST_F(Controls, CanBeRemoved) {
  EXPECT_EQ(show("var a = w.add('button', undefined, 'A'), b = w.add('button', undefined, 'B');"
                 "a.onClick = function () { w.remove(a); log.push(w.children.length); }",
                 "click \"A\"\nclick \"B\"\nclose"),
            "1");
}

// --- Icon buttons ---

TEST_F(Controls, AnIconButtonRefusesWhatIsNoPicture) {
  write("text.png", "text");
  const std::string start = "var b = new Window('dialog').add('iconbutton');";
  EXPECT_THAT(runOutcome(start + "b.image = new File('FOLDER/none.png')").errorText,
              EndsWith("Error: File or folder does not exist"));
  EXPECT_THAT(runOutcome(start + "b.image = 'FOLDER/text.png'").errorText, EndsWith("Error: Invalid image data"));
  EXPECT_EQ(run(start + "b.image = undefined; typeof b.image"), "undefined");
}

class IconButtons : public Controls {
 protected:
  IconButtons() {
    QImage picture(30, 20, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    picture.save(QString::fromStdString(folder.path("a b.png")));
    picture.save(QString::fromStdString(folder.path("j.jpg")));
  }
};

TEST_F(IconButtons, TakeAFileAPathOrAPicture) {
  EXPECT_EQ(
      run("var b = new Window('dialog').add('iconbutton', undefined, new File('FOLDER/a b.png'));"
          "var n = [b.image.size, b.image.format, b.image.name]; b.image = 'FOLDER/j.jpg'; n.push(b.image.format);"
          "b.image = ScriptUI.newImage('FOLDER/a b.png'); n.push(b.image.pathname); n.join(' ')"),
      "30,20 PNG a b.png JPEG " + folder.path("a b.png"));
}

TEST_F(IconButtons, ShowTheirPictureInItsOwnSize) {
  show("var b = w.add('iconbutton', undefined, new File('FOLDER/a b.png')); b.size = [60, 60]",
       "screenshot FOLDER/s.png\nclose");
  const QImage shot(QString::fromStdString(folder.path("s.png")));
  int reds = 0;
  for (int y = 0; y < shot.height(); ++y) {
    for (int x = 0; x < shot.width(); ++x) reds += shot.pixelColor(x, y) == QColor(Qt::red);
  }
  EXPECT_EQ(reds, 30 * 20);
}

TEST_F(IconButtons, AreDrawnByAScriptThatWantsTo) {
  EXPECT_EQ(show("var b = w.add('iconbutton', undefined, new File('FOLDER/a b.png')); b.size = [50, 50];"
                 "b.onDraw = function (state) { log[0] = typeof state.mouseOver + (this === b);"
                 "this.graphics.drawOSControl(); this.graphics.drawImage(this.image, 0, 0, 50, 50); }",
                 "tree\nexpect iconbutton image \"FOLDER/a b.png\"\nclose"),
            "booleantrue");
  EXPECT_THAT(said.str(), HasSubstr("50x50 image=\"" + folder.path("a b.png") + "\" drawn=\"control, image 50x50\""));
}

TEST_F(IconButtons, DrawingAtAnyOtherTimeIsAComplaint) {
  EXPECT_EQ(complaint("new Window('dialog').add('iconbutton').graphics.drawOSControl()"),
            "a dialog: graphics.drawOSControl outside of onDraw");
}

TEST_F(IconButtons, AreReachedByArrowKeysAndPressedByEnterOrSpace) {
  EXPECT_EQ(
      show("for (var r = 0; r < 2; ++r) { var g = w.add('group'); for (var i = 0; i < 3; ++i) {"
           "var b = g.add('iconbutton'); b.size = [50, 50]; b.n = r * 3 + i;"
           "b.onClick = function () { log.push(this.n); }; } }",
           "expect iconbutton#1 focused\npress Right\npress Right\npress Right\nexpect iconbutton#3 focused\n"
           "press Down\nexpect iconbutton#6 focused\npress Space\npress Left\npress Enter\npress Up\npress Enter\n"
           "press Escape"),
      "5 4 1");
}

}  // namespace
}  // namespace quiltor::standalone
