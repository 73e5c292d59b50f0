#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

class FileNames : public ScriptTest {
 protected:
  // With the names of Windows, for files below the scratch folder.
  std::string onWindows(const std::string& script) { return run(script, "option windows-names FOLDER"); }
};

TEST_F(FileNames, OfOneFileAreSpelledInFiveWaysOnWindows) {
  const std::string file = "var f = new File('C:\\\\Users\\\\me\\\\My Dir\\\\a b.png');";
  EXPECT_EQ(onWindows(file + "f.fsName"), "C:\\Users\\me\\My Dir\\a b.png");
  EXPECT_EQ(onWindows(file + "f.fullName"), "/c/Users/me/My Dir/a b.png");
  EXPECT_EQ(onWindows(file + "f.absoluteURI"), "/c/Users/me/My%20Dir/a%20b.png");
  EXPECT_EQ(onWindows(file + "f.name"), "a%20b.png");
  EXPECT_EQ(onWindows(file + "f.displayName"), "a b.png");
  EXPECT_EQ(onWindows(file + "f.path"), "/c/Users/me/My%20Dir");
  EXPECT_EQ(onWindows(file + "'' + f"), "/c/Users/me/My%20Dir/a%20b.png");
}

TEST_F(FileNames, BelowTheHomeFolderStartWithATilde) {
  EXPECT_EQ(run("new File('FOLDER/a b').fullName"), "~/a b");
  EXPECT_EQ(run("new File('FOLDER/a b').absoluteURI"), "~/a%20b");
  EXPECT_EQ(run("new File('~/a b').fsName"), folder.path("a b"));
  EXPECT_EQ(run("new Folder('~').fsName"), folder.path());
}

TEST_F(FileNames, WithLettersOfOtherScriptsAreEncodedInUtf8) {
  EXPECT_EQ(run("new File('/t/\u00e4').name"), "%C3%A4");
  EXPECT_EQ(run("new File('/t/%C3%A4').fsName"), "/t/\u00e4");
}

TEST_F(FileNames, AreDecodedSoThatAPercentSignIsMisread) {
  EXPECT_EQ(run("new File('/t/50%41.png').fsName"), "/t/50A.png");
  EXPECT_EQ(run("new File(File.encode('/t/50%41.png')).fsName"), "/t/50%41.png");
  EXPECT_EQ(run("File.decode('a%20b') + Folder.encode('a b')"), "a ba%20b");
}

TEST_F(FileNames, OfDrivesSharesAndSlashesAreAllRead) {
  EXPECT_EQ(onWindows("new File('/c/a/b').fsName"), "C:\\a\\b");
  EXPECT_EQ(onWindows("new File('c:/a/b').fsName"), "C:\\a\\b");
  EXPECT_EQ(onWindows("new File('//server/share/f').fsName"), "\\\\server\\share\\f");
  EXPECT_EQ(onWindows("new Folder('C:\\\\').fsName"), "C:\\");
}

TEST_F(FileNames, ThatAreRelativeStartFromTheCurrentFolder) {
  EXPECT_EQ(run("Folder.current = 'FOLDER/a'; new File('b/../c').fsName"), folder.path("a/c"));
  EXPECT_EQ(run("Folder.current = 'FOLDER/a'; new File('FOLDER/b c').relativeURI"), "../b%20c");
}

TEST_F(FileNames, WithoutAnyIsATemporaryFile) {
  EXPECT_EQ(run("new File().parent.fsName === Folder.temp.fsName"), "true");
}

TEST_F(FileNames, ParentsEndAtTheRootOfAVolume) {
  EXPECT_EQ(run("new Folder('/').parent"), "null");
  EXPECT_EQ(onWindows("new Folder('C:\\\\').parent"), "null");
  EXPECT_EQ(onWindows("new File('C:\\\\a').parent.fsName"), "C:\\");
}

TEST_F(FileNames, OfTheDataFoldersAreThoseOfTheEffect) {
  EXPECT_EQ(run("Folder.appData.fsName"), folder.path("all"));
  EXPECT_EQ(run("Folder.userData.fsName"), folder.path("user"));
  EXPECT_EQ(onWindows("Folder.appData.fsName"), "C:\\ProgramData");
}

TEST_F(FileNames, SayWhichSystemTheyAreOf) {
  EXPECT_EQ(run("File.fs + Folder.fs"), "MacintoshMacintosh");
  EXPECT_EQ(onWindows("File.fs"), "Windows");
}

TEST_F(FileNames, MakeDistinctObjectsOfOneFile) { EXPECT_EQ(run("new File('/t/a') == new File('/t/a')"), "false"); }

TEST_F(FileNames, CalledWithoutNewGiveTheKindThatIsThere) {
  EXPECT_EQ(run("(File('FOLDER') instanceof Folder) + ',' + (new File('FOLDER') instanceof File)"), "true,true");
  EXPECT_EQ(run("new File('FOLDER/nothing').exists"), "false");
}

TEST_F(FileNames, AMisspelledPropertyIsAnErrorThatNamesIt) {
  EXPECT_EQ(runOutcome("new File('/t').fsname").errorText, "line 1: TypeError: File has no property \"fsname\"");
  EXPECT_EQ(runOutcome("new Folder('/t').getfiles()").errorText,
            "line 1: TypeError: Folder has no property \"getfiles\"");
  EXPECT_EQ(runOutcome("Folder.userdata").errorText, "line 1: TypeError: Folder has no property \"userdata\"");
  EXPECT_EQ(runOutcome("new File('/t').encodng = 'UTF-8'").errorText,
            "line 1: TypeError: File has no property \"encodng\"");
  EXPECT_EQ(runOutcome("new File('/t').name = 'x'").errorText, "line 1: TypeError: File.name is read only");
}

}  // namespace
}  // namespace quiltor::standalone
