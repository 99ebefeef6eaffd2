#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "core/LineEndings.h"
#include "core/PathUtilities.h"
#include "model/undo/DialectCommand.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/HeldReads.h"
#include "view/FileDialog.h"

#include <QStatusBar>

namespace {

class SaveQuestions : public WindowFixture {
protected:
    QString dialect() const { return model().getSaveDelimiter() + QString::number(int(model().getLineEnding())); }
    /// Opens a file of which only the first read gives anything.
    void openPart(HeldReads& reads, QByteArray const& content) {
        reads.failAfter(1);
        box.next("OK");
        open(content);
        reads.failAfter(-1);
    }
};

} // namespace

TEST(LineEndings, CountBreaksOutsideOfQuotesInAnyWidth) {
    struct Case {
        QString text;
        QString names;
        LineEndingType prevailing;
    };
    for (auto const& [text, names, prevailing] :
         {Case{"a\nb\r\nc\r\n", "CRLF and LF", LineEndingType::Windows},
          Case{"\"a\nb\",c\r\n\"d\"\"\r\n\"", "CRLF", LineEndingType::Windows},
          Case{"a\n\rb\n", "LF and CR", LineEndingType::Unix}, Case{"a\rb\rc", "CR", LineEndingType::Invalid},
          Case{"5\" pipe,\"a\"\"\nb\"\r\n2\",\"x\r\n", "CRLF", LineEndingType::Windows},
          Case{"abc", "", LineEndingType::Invalid}}) {
        QByteArray utf16;
        for (QChar const letter : text)
            utf16.append(char(letter.row())).append(char(letter.cell()));
        QByteArray const utf8 = text.toUtf8();
        for (auto const& [bytes, encoding] :
             {std::pair(utf8, EncodingType::Utf8), std::pair(utf16, EncodingType::Utf16BE)}) {
            LineEndings const found = LineEndings::in({bytes.constData(), std::size_t(bytes.size())}, encoding,
                                                      ParsingStandard::Rfc4180, ",", false);
            EXPECT_EQ(found.names(), names) << qPrintable(text);
            EXPECT_EQ(found.prevailing(), prevailing) << qPrintable(text);
        }
    }
    EXPECT_EQ(
        LineEndings::in("a\x1e\"\x1e", EncodingType::Utf8, ParsingStandard::DelimiterOnly, ",", true).recordSeparators,
        2);
    EXPECT_EQ(LineEndings::in("a\r", EncodingType::Utf8, ParsingStandard::Rfc4180, ",", true).names(), "CR");
    EXPECT_EQ(
        LineEndings::in("\x1b$B$\"\x1b(B,1\r\nb\r\n", EncodingType::Iso2022Jp, ParsingStandard::Rfc4180, ",", true)
            .windows,
        2);
    EXPECT_FALSE(LineEndings::of(LineEndingType::Windows).areAll(LineEndingType::Unix));
    EXPECT_TRUE(LineEndings::of(LineEndingType::LegacyUnix3).areAll(LineEndingType::Unix));
}

TEST_F(SaveQuestions, AMarkSaysWhatAFileIsInWhateverItsExtensionSays) {
    struct Case {
        QByteArray bytes;
        QByteArray saved;
        char const* encoding;
    };
    using namespace std::string_literals;
    auto const of = [](std::string const& bytes) { return QByteArray::fromStdString(bytes); };
    for (auto const& [bytes, saved, encoding] :
         {Case{of("\xff\xfe\xe9\0,\0002\0\n\0"s), of("\xff\xfe\xb5\0,\0002\0\n\0"s), "UTF-16"},
          Case{of("\xfe\xff\0\xe9\0,\0002\0\n"s), of("\xfe\xff\0\xb5\0,\0002\0\n"s), "UTF-16"},
          Case{of("\xff\xfe\0\0\xe9\0\0\0,\0\0\0\n\0\0\0"s), of("\xff\xfe\0\0\xb5\0\0\0,\0\0\0\n\0\0\0"s), "UTF-32"},
          Case{of("\0\0\xfe\xff\0\0\0\xe9\0\0\0,\0\0\0\n"s), of("\0\0\xfe\xff\0\0\0\xb5\0\0\0,\0\0\0\n"s), "UTF-32"},
          Case{of("\xef\xbb\xbf\xc3\xa9,2\n"s), of("\xef\xbb\xbf\xc2\xb5,2\n"s), "UTF-8"},
          Case{of("\xfe\xe9,2\n"s), of("\xc2\xb5,2\n"s), "UTF-8"}}) {
        open(bytes);
        EXPECT_EQ(label(StatusBar::Label::Encoding), encoding);
        EXPECT_EQ(model().columnCountRaw(), 2) << encoding;
        change("µ");
        EXPECT_TRUE(window.saveFile(table()));
        EXPECT_EQ(read("a.csv"), saved) << encoding;
        window.closeFile(table());
    }
}

TEST_F(SaveQuestions, AFileThatIsWrittenAnewWithAMarkIsReadAgainByIt) {
    open("a,b\n");
    write("a.csv", QByteArray("\xff\xfe\xe9\0,\0002\0\n\0", 10));
    run("Reload File");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == QString::fromUtf8("é"); }));
    EXPECT_EQ(model().columnCountRaw(), 2);
}

TEST_F(SaveQuestions, AMarkWinsOverTheGuessOfAByteOrder) {
    window.onPreferenceChanged(write(Utilities::getExtensionsFilepath(),
                                     "Extension,Delimiter,Line Ending,Encoding,Parsing Standard\n"
                                     "u16,tab,LF,UTF-16,RFC 4180\n"));
    open(QByteArray("\xff\xfe\x00\x4e\x00\x30\x00\x4e", 8), "a.u16"); // looks like the other order
    EXPECT_EQ(cell(0, 0), QString::fromUtf16(u"\u4e00\u3000\u4e00"));
}

TEST_F(SaveQuestions, NoFileIsConvertedToAnotherDialectInSilence) {
    QByteArray const content = "a;\"b\nc\"\r\nd;e\r\n";
    open(content);
    change("x");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(box.texts().value(0),
              "This file has cells separated by semi-colon (;) and lines ending with CRLF.\nAs set, it "
              "would be saved with cells separated by comma (,) and lines ending with LF.");
    EXPECT_EQ(box.namedFiles().value(0), directory.filePath("a.csv"));
    EXPECT_EQ(box.defaults().value(0), "Keep as in the File");
    EXPECT_EQ(read("a.csv"), content);
    EXPECT_FALSE(table()->undoStack()->isClean());

    toggle("Save After Each Edit"); // asks nobody
    change("y");
    EXPECT_EQ(read("a.csv"), "y;\"b\nc\"\r\nd;e\r\n");
    table()->pushUndoCommand(new SetDelimiterCommand(&model(), {}, "|", false));
    EXPECT_EQ(read("a.csv"), "y|\"b\nc\"\r\nd|e\r\n");
    table()->undo();
    EXPECT_EQ(read("a.csv"), "y;\"b\nc\"\r\nd;e\r\n");
    toggle("Save After Each Edit");
    EXPECT_EQ(dialect(), ",1");

    box.next("Keep as in the File");
    EXPECT_TRUE(window.saveFile(table()));
    change("z");
    EXPECT_TRUE(window.saveFile(table())) << "asked once";
    EXPECT_EQ(read("a.csv"), "z;\"b\nc\"\r\nd;e\r\n");
    EXPECT_EQ(dialect(), ";0");
}

TEST_F(SaveQuestions, WhatTheUserHasSetOrSaidForAnExtensionIsNotAskedAbout) {
    open("a;b\r\nc;d\n", "a.csv");
    box.next("Save as Set");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_TRUE(box.texts().value(0).contains("CRLF and LF"));
    EXPECT_EQ(read("a.csv"), "a,b\nc,d\n");

    open("a;b\r\n", "set.csv");
    table()->pushUndoCommand(new SetDelimiterCommand(&model(), {}, "|", false));
    table()->pushUndoCommand(new SetLineEndingCommand(&model(), {}, LineEndingType::Unix, false));
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("set.csv"), "a|b\n");

    open("one column\r\n", "b.csv");
    box.nextTicked("Keep as in the File");
    change("1");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(box.texts().last(),
              "This file has lines ending with CRLF.\nAs set, it would be saved with lines ending with LF.");
    open("a;b\r\n", "c.csv");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("c.csv"), "a;b\r\n");
    open("a\tb\r\n", "c.tsv");
    box.nextTicked("Save as Set");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("c.tsv"), "a\tb\n");
    open("a\r\n", "d.tsv");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("d.tsv"), "a\n");
    EXPECT_TRUE(QFile::exists(Utilities::getConfigFilepath()));
}

TEST_F(SaveQuestions, TheBeginningOfAFileIsNotSavedOverTheWhole) {
    HeldReads reads;
    QByteArray const content = "a,b\n" + QByteArray(3 << 20, 'x') + '\n';
    openPart(reads, content);
    change("1");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_TRUE(box.texts().last().startsWith("Only the first 256.0 kB of this file could be read."))
        << qPrintable(box.texts().last());
    EXPECT_EQ(box.defaults().last(), "Save As");
    toggle("Save After Each Edit");
    change("2");
    toggle("Save After Each Edit");
    EXPECT_EQ(window.getStatusBar()->currentMessage(), "Not saved: only the beginning of the file could be read.");
    EXPECT_EQ(read("a.csv"), content);

    FileDialog::setAnswer([this](QString const&) { return QStringList{directory.filePath("b.csv")}; });
    box.next("Save As");
    EXPECT_TRUE(window.saveFile(table()));
    FileDialog::setAnswer({});
    EXPECT_EQ(read("a.csv"), content);
    EXPECT_TRUE(read("b.csv").startsWith("2,b\nxxx"));
    change("3");
    EXPECT_TRUE(window.saveFile(table())) << "it has all of its new file";

    openPart(reads, content);
    box.next("Save Anyway");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_LT(read("a.csv").size(), content.size());
    EXPECT_TRUE(window.saveFile(table()));
}

TEST_F(SaveQuestions, OtherNamesOfAFileAreToldBeforeTheyAreCutOff) {
    QString const path = open("1\n");
    QString const second = directory.filePath("second.csv");
    ASSERT_EQ(::link(QFile::encodeName(path), QFile::encodeName(second)), 0);
    change("2");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(box.texts().value(0), "This file has 2 names; saving keeps only this one up to date.");
    box.next("Write in Place");
    EXPECT_TRUE(window.saveFile(table()));
    change("3");
    EXPECT_TRUE(window.saveFile(table())) << "asked once";
    EXPECT_EQ(read("second.csv"), "3\n");

    open("4\n", "other.csv");
    box.next("Save");
    EXPECT_TRUE(window.saveFileUnder(table(), second, false));
    EXPECT_EQ(read("second.csv"), "4\n");
    EXPECT_EQ(read("a.csv"), "3\n");
}

TEST_F(SaveQuestions, AnotherWriterIsSeenUntilTheFileIsReplaced) {
    open("1\r\n");
    change("mine");
    box.next("Keep as in the File", [this] { write("a.csv", "theirs\n"); });
    box.next("Ignore");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "theirs\n");
    EXPECT_TRUE(box.texts().last().startsWith("This file has been changed externally"));
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "mine\r\n");
}

TEST_F(SaveQuestions, ACopyOverTheOwnFileByAnotherPathKeepsWhatIsHidden) {
    QString const path = open("1\n2\n3\n");
    QString const link = directory.filePath("link.csv");
    ASSERT_TRUE(QFile::link(path, link));
    select("R1,0*");
    run("Hide Selected Row(s)");
    EXPECT_TRUE(window.saveFileUnder(table(), link, true));
    EXPECT_EQ(read("a.csv"), "1\n3\n");
    EXPECT_EQ(stored(), "1|(2)|3");
    EXPECT_TRUE(table()->hasUnsavedChanges());
    EXPECT_EQ(table()->getFilepath(), path);
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "1\n2\n3\n");
}

TEST_F(SaveQuestions, WhatWouldNotComeBackFromTheFileIsToldBeforeItIsWritten) {
    open("a,b\n1,2\n");
    table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::SparseQuotes, false));
    change("\"x\"", 1, 1);
    change("\"", 0, 1);
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_TRUE(box.texts().last().startsWith("2 cells would not come back from the file as they are"))
        << qPrintable(box.texts().last());
    EXPECT_EQ(box.defaults().last(), "Cancel");
    select("C0,0*");
    box.next("Show Cells");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(selection(), "C0,1* C1,1");
    toggle("Save After Each Edit");
    change("3", 1, 0);
    EXPECT_EQ(window.getStatusBar()->currentMessage(),
              "Not saved: cells would not come back from the file as they are.");
    toggle("Save After Each Edit");
    EXPECT_EQ(read("a.csv"), "a,b\n1,2\n");
    EXPECT_TRUE(table()->hasUnsavedChanges());
    box.next("Save Anyway");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "a,\"\n3,\"x\"\n");
}

TEST_F(SaveQuestions, TheOwnFileIsAskedAboutHoweverItIsSavedTo) {
    QString const path = open("a;b\r\nc;d\r\n");
    for (bool const visibleOnly : {false, true}) {
        box.next("Cancel");
        EXPECT_FALSE(window.saveFileUnder(table(), path, visibleOnly));
    }
    change("mine");
    write("a.csv", "theirs;1\r\n");
    box.next("Ignore");
    EXPECT_FALSE(window.saveFileUnder(table(), path, false));
    box.next("Keep as in the File");
    EXPECT_TRUE(window.saveFileUnder(table(), path, false));
    EXPECT_EQ(read("a.csv"), "mine;b\r\nc;d\r\n");
    window.closeFile(table());

    HeldReads reads;
    QByteArray const content = "a,b\n" + QByteArray(3 << 20, 'x') + '\n';
    openPart(reads, content);
    for (bool const visibleOnly : {false, true}) {
        box.next("Cancel");
        EXPECT_FALSE(window.saveFileUnder(table(), path, visibleOnly));
    }
    EXPECT_EQ(read("a.csv"), content);
}

TEST_F(SaveQuestions, WhatCannotBeKeptIsNotOfferedAndLeftByAutomaticSaves) {
    open("a\rb\r");
    toggle("Save After Each Edit");
    change("1");
    EXPECT_EQ(window.getStatusBar()->currentMessage(), "Not saved: the line ends of the file would change.");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(box.defaults().last(), "Cancel");
    EXPECT_EQ(read("a.csv"), "a\rb\r");
    box.next("Save as Set");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "1\nb\n");

    QString const path = open("1\n", "linked.csv");
    ASSERT_EQ(::link(QFile::encodeName(path), QFile::encodeName(directory.filePath("other.csv"))), 0);
    change("2");
    EXPECT_EQ(window.getStatusBar()->currentMessage(),
              "Not saved: the file has other names, which would keep what it was.");
    box.next("Write in Place");
    EXPECT_TRUE(window.saveFile(table()));
    change("3");
    EXPECT_EQ(read("other.csv"), "3\n");

    open("a;b\r\nc;d\n", "mixed.csv");
    box.next("Keep What Can Be Kept");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("mixed.csv"), "a;b\r\nc;d\r\n");
    toggle("Save After Each Edit");
}
