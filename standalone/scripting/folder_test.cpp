#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class FolderObjects : public ScriptTest {
 protected:
  FolderObjects() {
    write("t/b.png", "b");
    write("t/A.PNG", "a");
    write("t/sub/c.png", "c");
    write("t/.hidden", "h");
  }

  std::string names(const std::string& getFiles, const std::string& steps = "") {
    return run("var all = new Folder('FOLDER/t')." + getFiles +
                   ", n = []; for (var i = 0; i < all.length; ++i) n.push(all[i].name); n.join(' ')",
               steps);
  }
};

TEST_F(FolderObjects, ListFilesAndFoldersTogetherAndHiddenOnesToo) {
  EXPECT_EQ(names("getFiles()"), ".hidden A.PNG b.png sub");
  EXPECT_EQ(run("new Folder('FOLDER/t').getFiles('sub')[0] instanceof Folder"), "true");
  EXPECT_EQ(run("new Folder('FOLDER/t').getFiles('b.png')[0] instanceof File"), "true");
}

TEST_F(FolderObjects, ListByAMaskWithoutRegardToCase) {
  EXPECT_EQ(names("getFiles('*.png')"), "A.PNG b.png");
  EXPECT_EQ(names("getFiles('?.p*g')"), "A.PNG b.png");
  EXPECT_EQ(names("getFiles('a*b')"), "");
}

TEST_F(FolderObjects, ListByAFunction) {
  EXPECT_EQ(names("getFiles(function (f) { return f instanceof Folder; })"), "sub");
  EXPECT_EQ(names("getFiles(function (f) { return 1; })"), "");
}

TEST_F(FolderObjects, ListInAnyOrderThatATestAsksFor) {
  EXPECT_EQ(names("getFiles()", "option order reversed"), "sub b.png A.PNG .hidden");
}

TEST_F(FolderObjects, ThatAreNotThereListNull) { EXPECT_EQ(run("new Folder('FOLDER/none').getFiles()"), "null"); }

TEST_F(FolderObjects, KeepAPercentSignOfAName) {
  write("t/sub/50%41.txt", "x");
  EXPECT_EQ(run("new Folder('FOLDER/t/sub').getFiles('*.txt')[0].fsName"), folder.path("t/sub/50%41.txt"));
}

TEST_F(FolderObjects, AreMadeOneLevelAtATime) {
  EXPECT_EQ(run("new Folder('FOLDER/x/y').create()"), "false");
  EXPECT_EQ(run("new Folder('FOLDER/x').create() + ',' + new Folder('FOLDER/x').exists"), "true,true");
}

TEST_F(FolderObjects, AreRemovedOnlyWhenTheyAreEmpty) {
  EXPECT_EQ(run("new Folder('FOLDER/t').remove()"), "false");
  EXPECT_EQ(run("new File('FOLDER/t/b.png').remove() + ',' + new File('FOLDER/t/b.png').remove()"), "true,false");
}

TEST_F(FolderObjects, CopiesReplaceAndMakeNoFolders) {
  EXPECT_EQ(run("var f = new File('FOLDER/t/b.png'); f.copy(new File('FOLDER/t/A.PNG')) + ',' + f.copy('FOLDER/no/b')"),
            "true,false");
  EXPECT_EQ(read("t/A.PNG"), "b");
}

TEST_F(FolderObjects, AreRenamed) {
  EXPECT_EQ(run("var f = new File('FOLDER/t/b.png'); f.rename('c d.png') + f.name"), "truec%20d.png");
}

TEST_F(FolderObjects, OpenInTheSystem) {
  run("new Folder('FOLDER/t').execute()");
  EXPECT_EQ(said.str(), "open: " + folder.path("t") + "\n");
}

TEST_F(FolderObjects, ChangesThrowWhenTheHostDoesNotAllowThem) {
  const std::string start = "Error: Permission denied (is Preferences";
  EXPECT_THAT(runOutcome("new File('FOLDER/f').open('w')", "option writing denied").errorText, HasSubstr(start));
  EXPECT_THAT(runOutcome("new Folder('FOLDER/f').create()", "option writing denied").errorText, HasSubstr(start));
  EXPECT_THAT(runOutcome("new File('FOLDER/t/b.png').remove()", "option writing denied").errorText, HasSubstr(start));
  EXPECT_THAT(runOutcome("new File('FOLDER/t/b.png').copy('FOLDER/c')", "option writing denied").errorText,
              HasSubstr(start));
  EXPECT_EQ(run("var f = new File('FOLDER/t/b.png'); f.open('r') + f.read()", "option writing denied"), "trueb");
}

TEST_F(FolderObjects, AFileMayBeEmptiedBeforeTheHostRefusesToWrite) {
  EXPECT_THAT(runOutcome("var f = new File('FOLDER/t/b.png'); f.open('w'); f.write('x')", "option writing denied-late")
                  .errorText,
              HasSubstr("Permission denied"));
  EXPECT_EQ(read("t/b.png"), "");
}

TEST_F(FolderObjects, AFolderThatTheSystemRefusesGivesFalse) {
  EXPECT_EQ(run("var f = new File('FOLDER/t/x'); f.open('w') + f.error", "option unwritable FOLDER/t"),
            "falsePermission denied");
  EXPECT_EQ(run("new Folder('FOLDER/t/x').create()", "option unwritable FOLDER/t"), "false");
}

TEST_F(FolderObjects, AreChosenByAPerson) {
  EXPECT_EQ(run("Folder.selectDialog('Which?').fsName", "answer FOLDER/t"), folder.path("t"));
  EXPECT_EQ(said.str(), "choose folder: Which?\n");
  EXPECT_EQ(run("new Folder('FOLDER/t').selectDlg('Which?')", "answer cancel"), "null");
  EXPECT_EQ(said.str(), "choose folder: Which? (from " + folder.path("t") + ")\n");
}

TEST_F(FolderObjects, FilesAreChosenByAPerson) {
  EXPECT_EQ(run("File.openDialog('Which?', 'images:*.png;*.jp*').fsName", "answer FOLDER/t/b.png"),
            folder.path("t/b.png"));
  EXPECT_EQ(said.str(), "choose file: Which? [images (*.png *.jp*)]\n");
  EXPECT_EQ(run("File.openDialog('Which?', '', true).length", "answer FOLDER/a FOLDER/b"), "2");
  EXPECT_EQ(run("File.openDialog('Which?')", "answer cancel"), "null");
  EXPECT_EQ(run("File.saveDialog('Where?').name", "answer FOLDER/x"), "x");
}

TEST_F(FolderObjects, AQuestionThatNobodyAnswersIsAFailure) {
  EXPECT_THAT(complaint("Folder.selectDialog('Which?')", "print \"\""),
              StartsWith("steps: line 1: choose folder \"Which?\": nobody answers"));
}

}  // namespace
}  // namespace quiltor::standalone
