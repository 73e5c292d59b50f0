#include "standalone/scripting/test_script.h"

namespace quiltor::standalone {
namespace {

class FileText : public ScriptTest {
 protected:
  // What a script reads of a file.
  std::string readBy(const std::string& bytes, const std::string& reading) {
    write("f.txt", bytes);
    return run("var f = new File('FOLDER/f.txt'); " + reading);
  }
};

TEST_F(FileText, IsWrittenWithTheLineEndsOfItsProperty) {
  run("var f = new File('FOLDER/f.txt'); f.encoding = 'UTF-8'; f.lineFeed = 'Windows';"
      "f.open('w'); f.writeln('a\\nb\\n'); f.write('c', 1, '\\n'); f.close();");
  EXPECT_EQ(read("f.txt"), "a\r\nb\r\n\r\nc1\r\n");
  run("var f = new File('FOLDER/f.txt'); f.lineFeed = 'unix'; f.open('w'); f.writeln('a'); f.close();");
  EXPECT_EQ(read("f.txt"), "a\n");
}

TEST_F(FileText, GivesACarriageReturnTooManyToWhoWritesItHimself) {
  run("var f = new File('FOLDER/f.txt'); f.lineFeed = 'Windows'; f.open('w'); f.write('a\\r\\n'); f.close();");
  EXPECT_EQ(read("f.txt"), "a\r\r\n");
}

TEST_F(FileText, IsWrittenInItsEncodingWithoutAByteOrderMark) {
  run("var f = new File('FOLDER/f.txt'); f.encoding = 'UTF-8'; f.open('w'); f.write('\u00e4\u2726'); f.close();");
  EXPECT_EQ(read("f.txt"), "\u00e4\u2726");
}

TEST_F(FileText, IsInTheSystemsCodePageWhenTheEncodingIsForgotten) {
  run("var f = new File('FOLDER/f.txt'); f.open('w'); f.write('\u00e4\u2726'); f.close();");
  EXPECT_EQ(read("f.txt"), "\xE4?");
}

TEST_F(FileText, IsKnownForUtf8WhenItIsRead) {
  EXPECT_EQ(readBy("\u00e4", "f.open('r'); f.read() + f.encoding"), "\u00e4UTF-8");
  EXPECT_EQ(readBy("\xE4", "f.encoding = 'UTF-8'; f.open('r'); f.read() + f.encoding"),
            "\u00e4"
            "CP1252");
}

TEST_F(FileText, LosesItsByteOrderMark) {
  EXPECT_EQ(readBy("\xEF\xBB\xBF"
                   "a",
                   "f.open('r'); f.read().length"),
            "1");
  EXPECT_EQ(readBy(std::string("\xFF\xFE"
                               "a\0",
                               4),
                   "f.open('r'); f.read() + f.encoding"),
            "aUTF-16LE");
}

TEST_F(FileText, IsBytesInBinary) {
  EXPECT_EQ(readBy("\u00e4\n", "f.encoding = 'BINARY'; f.open('r'); f.read().length"), "3");
}

TEST_F(FileText, LinesEndInFourWays) {
  EXPECT_EQ(readBy("a\rb\nc\r\nd\n\re", "f.open('r'); var l = []; while (!f.eof) l.push(f.readln()); l.join('|')"),
            "a|b|c|d|e");
}

TEST_F(FileText, ALineEndAtTheEndOfTheFileGivesNoLineMore) {
  EXPECT_EQ(readBy("a\r\n", "f.open('r'); var n = 0; while (!f.eof) { f.readln(); ++n; } n"), "1");
}

TEST_F(FileText, OfNothingGivesOneEmptyLineBeforeItsEnd) {
  EXPECT_EQ(readBy("", "f.open('r'); var l = []; while (!f.eof) l.push(f.readln()); l.length + l[0]"), "1");
}

TEST_F(FileText, KeepsItsLineEndsWhenItIsReadWhole) {
  EXPECT_EQ(readBy("a\r\nb", "f.open('r'); f.read().length + ',' + f.eof"), "4,true");
}

TEST_F(FileText, IsReadInPieces) {
  EXPECT_EQ(readBy("\u00e4"
                   "bcd",
                   "f.open('r'); f.readch() + f.read(2) + f.tell() + (f.seek(2) ? f.read() : '')"),
            "\u00e4"
            "bc4bcd");
}

TEST_F(FileText, IsAddedToAtItsEnd) {
  write("f.txt", "a");
  run("var f = new File('FOLDER/f.txt'); f.open('a'); f.write('b'); f.close();");
  EXPECT_EQ(read("f.txt"), "ab");
}

TEST_F(FileText, IsGoneAsSoonAsTheFileIsOpenedForWriting) {
  write("f.txt", "a");
  EXPECT_EQ(run("var f = new File('FOLDER/f.txt'); f.open('w'); f.length"), "0");
}

TEST_F(FileText, FailuresAreFalseWithAReasonAndDoNotThrow) {
  EXPECT_EQ(run("var f = new File('FOLDER/none'); f.open('r') + f.error"), "falseFile or folder does not exist");
  EXPECT_EQ(run("var f = new File('FOLDER/no/folder'); f.open('w') + f.error"), "falseFile or folder does not exist");
  EXPECT_EQ(run("var f = new File('FOLDER'); f.open('w')"), "false");
  EXPECT_EQ(run("var f = new File('FOLDER/f'); [f.write('a'), f.writeln(), f.close(), f.eof, f.read(), f.length]"),
            "false,false,false,true,,-1");
}

}  // namespace
}  // namespace quiltor::standalone
