#include "app/PaneView.h"
#include "model/undo/DialectCommand.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/HeldClock.h"
#include "tests/support/Notices.h"
#include "tests/support/Typing.h"
#include "view/EditorPane.h"
#include "view/FileDialog.h"

#include <QPointer>
#include <QScrollBar>

namespace {

struct ShortWaits {
    ShortWaits() { MainWindow::setWatchTimings({20, 80, 30, 50}); }
};

class SaveFlowTest : private ShortWaits, public WindowFixture {
protected:
    QString openWithLineBreaks() {
        QString const path = open("\"x\r\ny\",1\n\"p\nq\",2\n");
        table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::DelimiterOnly, false));
        return path;
    }

    /// Puts rows of the file of extensions in force.
    void setExtensions(QByteArray const& rows) {
        window.onPreferenceChanged(write(Utilities::getExtensionsFilepath(),
                                         "Extension,Delimiter,Line Ending,Encoding,Parsing Standard\n" + rows));
    }
    /// What the next save writes in, as the status bar tells it and as the model has it.
    QString dialect() const {
        return QStringList{label(StatusBar::Label::Delimiter),
                           label(StatusBar::Label::Encoding),
                           label(StatusBar::Label::LineEnding),
                           model().getSaveDelimiter(),
                           model().getExtension(),
                           QString::number(int(model().getEncoding())),
                           QString::number(int(model().getParsingStandard()))}
            .join('/');
    }

    void show() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    static void enter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }
    /// Lets what waits for the user come up to the clock several times.
    static testing::AssertionResult waits(HeldClock const& clock) {
        int const before = clock.reads;
        return QTest::qWaitFor([&] { return clock.reads > before + 3; })
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "nobody waits";
    }
};

} // namespace

TEST_F(SaveFlowTest, AnOwnSaveIsQuietAndOutsideWritesAndReplacementsAreReadAgain) {
    QString const path = open("1\n");
    change("2");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_TRUE(table()->undoStack()->isClean());
    EXPECT_EQ(read("a.csv"), "2\n");
    write("a.csv", "three\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "three"; }));
    QString const other = write("b.csv", "fourth\n");
    ASSERT_EQ(::rename(QFile::encodeName(other), QFile::encodeName(path)), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "fourth"; }));
    write("a.csv", "five of it\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "five of it"; }));
}

TEST_F(SaveFlowTest, NoSaveGoesOverAChangeThatNobodyWasToldOf) {
    open("1\n");
    change("mine");
    write("a.csv", "theirs\n"); // saved before the watch can have told of it
    box.next("Ignore");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_TRUE(box.texts().value(0).contains("but you have unsaved changes"));
    EXPECT_EQ(read("a.csv"), "theirs\n");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "mine\n");

    toggle("Save After Each Edit");
    write("a.csv", "theirs again\n");
    box.next("Ignore");
    change("held back");
    EXPECT_EQ(read("a.csv"), "theirs again\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 2; }));
    EXPECT_EQ(read("a.csv"), "theirs again\n");
    change("goes");
    EXPECT_EQ(read("a.csv"), "goes\n");
    toggle("Save After Each Edit");

    change("lost with leave");
    write("a.csv", "the last\n");
    box.next("Reload");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "the last"; }));
    EXPECT_EQ(read("a.csv"), "the last\n");
    EXPECT_EQ(box.texts().size(), 3);
}

TEST_F(SaveFlowTest, ASaveUnderAnotherNameThatFailsDoesNotHideAnOutsideChange) {
    open("1\n");
    change("mine");
    write("a.csv", "theirs\n");
    box.next("OK");
    EXPECT_FALSE(window.saveFileUnder(table(), directory.filePath("no folder/b.csv"), false));
    box.next("Ignore");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), "theirs\n");
}

TEST_F(SaveFlowTest, AFileThatTakesThePlaceOfAFolderWhichTookThatOfTheOpenFileIsRead) {
    QString const path = open("1\n");
    QFile::remove(path);
    QDir().mkdir(path);
    box.next("OK");
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
    QDir().rmdir(path);
    write("a.csv", "theirs\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "theirs"; }));
}

TEST_F(SaveFlowTest, OutsideChangesUnderEditsAskAndAFileThatGoesClosesItsTable) {
    QString const path = open("1\n");
    change("mine");
    box.next("Ignore");
    write("a.csv", "theirs\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
    EXPECT_EQ(box.texts().value(0), "This file has been changed externally, but you have unsaved changes.\n\nWould you "
                                    "like to reload the file or ignore the external changes?");
    EXPECT_EQ(cell(0, 0), "mine");
    box.next("Reload");
    write("a.csv", "theirs again\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "theirs again"; }));
    EXPECT_TRUE(table()->undoStack()->isClean());
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return table()->getFilepath().isEmpty(); }));
}

TEST_F(SaveFlowTest, NoQuestionComesBetweenTheKeysOfAText) {
    HeldClock clock;
    open("1\n2\n3\n");
    show();
    typeText("one");
    write("a.csv", "theirs\n");
    EXPECT_TRUE(waits(clock));
    clock.pass(TypingGuard::idleMs - 1);
    typeText("x");
    enter();
    EXPECT_TRUE(waits(clock));
    typeText("two");
    EXPECT_TRUE(waits(clock));
    enter();
    clock.pass(TypingGuard::stillMs - 1);
    EXPECT_TRUE(waits(clock));
    EXPECT_EQ(stored(), "onex|two|3");
    EXPECT_EQ(box.texts(), QStringList());
    clock.pass(1);
    box.next("Ignore", [] { EXPECT_TRUE(FromOutside::isActing()); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
}

TEST_F(SaveFlowTest, WhatIsTypedWhenTheFileGoesNeverLandsInAnotherTable) {
    HeldClock clock;
    open("1\n", "b.csv");
    TableView const* const other = table();
    QString const path = open("1\n");
    show();
    auto const goes = [&] { return window.getPaneView()->getTableView(path) == nullptr; };
    typeText("one");
    QFile::remove(path);
    EXPECT_TRUE(waits(clock));
    typeText(" more");
    clock.pass(TypingGuard::idleMs - 1);
    EXPECT_TRUE(waits(clock));
    EXPECT_FALSE(goes());
    clock.pass(1); // as of a user who has left an edit open
    EXPECT_TRUE(QTest::qWaitFor(goes));
    EXPECT_EQ(table(), other);
    typeText("rest");
    enter();
    EXPECT_EQ(stored(), "1");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    typeText("other");
    enter();
    EXPECT_EQ(stored(), "other");
    Notices::press(window, "Open Last Contents");
    EXPECT_EQ(stored(), "one more");
    box.next("Don't Save");
    window.closeFile(table());

    write("a.csv", "1\n"); // and behind an empty prompt
    window.openFile(path);
    clock.pass(TypingGuard::idleMs);
    window.runCommand("Command Launcher");
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor(goes));
    typeText("again");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    enter();
    EXPECT_EQ(stored(), "other");

    write("a.csv", "1\n"); // and between two texts
    window.openFile(path);
    clock.pass(TypingGuard::idleMs);
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor(goes));
    typeText("next");
    enter();
    EXPECT_EQ(stored(), "other");
}

TEST_F(SaveFlowTest, ASeriesOfTextsGoesOnThroughAutomaticSavesThatFail) {
    HeldClock clock;
    toggle("Save After Each Edit");
    QString const path = open("1\n");
    show();
    QFile::remove(path);
    QDir().mkdir(path); // a file cannot take the place of a folder
    for (char const* const text : {"alpha", "beta", "gamma"}) {
        typeText(text);
        enter();
    }
    box.next("OK");
    clock.pass(TypingGuard::stillMs);
    EXPECT_EQ(box.texts().size(), 1);
    EXPECT_EQ(stored(), "alpha|beta|gamma");
    toggle("Save After Each Edit");
}

TEST_F(SaveFlowTest, AWindowThatClosesAsksAboutTheEditsOfTablesWhoseFilesWent) {
    QString const path = open("1\n");
    change("edited");
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Notices::texts(window).isEmpty(); }));
    box.next("Cancel");
    EXPECT_FALSE(window.close());
    EXPECT_EQ(stored(), "edited");
    EXPECT_EQ(Notices::texts(window), QStringList());
    box.next("Don't Save");
    EXPECT_TRUE(window.close());
}

TEST_F(SaveFlowTest, ATableWhoseFileWentComesBackWithItsEditsAndItsHistory) {
    QString const path = open("1\n");
    change("edited");
    change("again");
    toggle("Save After Each Edit");
    QPointer<TableView> const gone = table();
    gone->startEditing(true, false);
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return table() != gone; }));
    EXPECT_EQ(Notices::texts(window),
              QStringList("This file was deleted or moved by another program, and its tab was closed: " + path));
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
    EXPECT_EQ(read("a.csv"), "unreadable"); // the edit that was open is not written to it
    Notices::press(window, "Open Last Contents");
    EXPECT_EQ(Notices::texts(window), QStringList());
    ASSERT_EQ(table(), gone.data());
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
    EXPECT_TRUE(gone->getFilepath().isEmpty());
    EXPECT_FALSE(gone->undoStack()->isClean());
    while (gone->undoStack()->index() > 1)
        gone->undo();
    EXPECT_EQ(cell(0, 0), "edited");
    gone->undo();
    EXPECT_EQ(cell(0, 0), "1");
    EXPECT_FALSE(gone->undoStack()->isClean()); // it is in no file
    EXPECT_TRUE(window.saveFileUnder(gone, path, false));
    EXPECT_EQ(read("a.csv"), "1\n");
    change("a change by an edit");
    EXPECT_EQ(read("a.csv"), "a change by an edit\n");
    toggle("Save After Each Edit");
}

TEST_F(SaveFlowTest, AReadOnlyTableThatComesBackCanBeSaved) {
    set("Read-Only,true");
    QString const path = open("1\n");
    set("Read-Only,false");
    ASSERT_TRUE(table()->isReadOnly());
    QFile::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return table()->getFilepath().isEmpty(); }));
    Notices::press(window, "Open Last Contents");
    EXPECT_FALSE(table()->isReadOnly());
    change("edited");
    FileDialog::setAnswer([&](QString const&) { return QStringList(path); });
    window.runCommand("Save File");
    FileDialog::setAnswer({});
    EXPECT_EQ(read("a.csv"), "edited\n");
    table()->tableModel()->insertRows(0, 1);
    EXPECT_EQ(cell(1, 0), "edited");
}

TEST_F(SaveFlowTest, TheNextFileThatGoesEndsTheOfferOfATableWithoutEdits) {
    std::vector<QPointer<TableView>> gone;
    auto const lose = [&](QString const& name, bool edited) {
        QString const path = write(name, "1\n");
        window.openFile(path);
        gone.emplace_back(table());
        if (edited)
            change("edited");
        QFile::remove(path);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.getPaneView()->getTableView(path) == nullptr; }));
    };
    auto const userActs = [this] { QTest::keyClick(&window, Qt::Key_Shift); };
    lose("a.csv", false);
    userActs();
    lose("b.csv", true);
    EXPECT_TRUE(gone[0].isNull());
    userActs();
    lose("c.csv", false);
    EXPECT_FALSE(gone[1].isNull());
    EXPECT_TRUE(Notices::texts(window).value(0).endsWith(": " + directory.filePath("b.csv") + ", " +
                                                         directory.filePath("c.csv")));
    Notices::press(window, "Open Last Contents");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    lose("d.csv", true);
    Notices::press(window, "Dismiss");
    EXPECT_TRUE(gone[3].isNull());
    EXPECT_EQ(Notices::texts(window), QStringList());
}

TEST_F(SaveFlowTest, FilesThatGoBeforeTheUserActsAreOfferedTogether) {
    QStringList paths;
    for (QString const name : {"a.csv", "b.csv", "c.csv"}) {
        paths << write(name, name.toUtf8() + '\n');
        window.openFile(paths.last());
    }
    for (QString const& path : paths) {
        QFile::remove(path);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.getPaneView()->getTableView(path) == nullptr; }));
    }
    EXPECT_EQ(Notices::texts(window),
              QStringList("These files were deleted or moved by another program, and their tabs "
                          "were closed: " +
                          paths.join(", ")));
    Notices::press(window, "Open Last Contents");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 3U);
}

TEST_F(SaveFlowTest, AFileThatGoesWhileItsReloadIsAskedAboutKeepsTheEdits) {
    QString const path = open("1\n");
    change("mine");
    QPointer<TableView> const own = table();
    box.next("Reload", [&] { QFile::remove(path); });
    write("a.csv", "theirs\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return table() != own; }));
    Notices::press(window, "Open Last Contents");
    EXPECT_EQ(table(), own.data());
    EXPECT_EQ(cell(0, 0), "mine");
}

TEST_F(SaveFlowTest, TablesThatGoDuringAQuestionEndTheWorkOnThemOnly) {
    open("1\n");
    change("a");
    TableView* const first = table();
    open("1\n", "b.csv");
    change("b");
    QFile::remove(directory.filePath("a.csv"));
    QDir().mkdir(directory.filePath("a.csv")); // a file cannot take the place of a folder
    box.next("OK", [&] {
        first->undoStack()->setClean();
        window.closeFile(first);
    });
    window.commandSaveAllFiles();
    EXPECT_EQ(read("b.csv"), "b\n");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    change("b again");
    box.next("Save", [&] {
        table()->undoStack()->setClean();
        window.closeFile(table());
    });
    EXPECT_TRUE(window.closeFile(table()));
    EXPECT_EQ(read("b.csv"), "b\n");
}

TEST_F(SaveFlowTest, AnOutsideChangeWaitsForTheSortOfItsTable) {
    QByteArray rows;
    for (int i = 0; i < 200000; ++i)
        rows += "w" + QByteArray::number(i * 7919LL % 200000) + "\n";
    open(rows);
    table()->tableModel()->setNumberOfHeaderRows(0);
    QTimer::singleShot(0, &window, [this] { write("a.csv", "theirs\n"); });
    window.commandSortSelectedColumnDescending();
    EXPECT_EQ(cell(0, 0), "w199999");
    box.next("Ignore"); // now the sort is an edit that a reload would lose
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
    EXPECT_EQ(cell(0, 0), "w199999");
}

TEST_F(SaveFlowTest, ASaveAsDelimiterOnlyRemovesLineBreaksOrIsCancelled) {
    QString const path = openWithLineBreaks();
    QByteArray const before = read("a.csv");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(read("a.csv"), before);
    EXPECT_TRUE(box.texts().value(0).contains("2 cells contain line breaks."));
    EXPECT_EQ(box.defaults().value(0), "Change");
    box.next("Remove");
    window.saveFile(table());
    EXPECT_EQ(read("a.csv"), "xy,1\npq,2\n");
    table()->undo();
    EXPECT_EQ(cell(0, 0), "x\r\ny");
}

TEST_F(SaveFlowTest, TheQuestionsOfASaveComeOnceEach) {
    open("a;b\r\n1;2\r\n");
    table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::SparseQuotes, false));
    change("\"x\"", 1, 1);
    box.next("Save as Set");
    box.next("Save Anyway"); // the cell would come back as x
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(box.texts().size(), 2);
    EXPECT_EQ(read("a.csv"), "a,b\n1,\"x\"\n");
}

TEST_F(SaveFlowTest, ATransposedTableWithHiddenLinesIsAskedAboutTheCellsThatItShows) {
    open("1,2\n3,4\n5,6\n7,\"x\ny\"\n");
    run("Transpose Table");
    table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::DelimiterOnly, false));
    box.next("Remove");
    window.saveFile(table());
    EXPECT_EQ(read("a.csv"), "1,3,5,7\n2,4,6,xy\n");
    table()->undo();
    EXPECT_EQ(cell(1, 3), "x\ny");

    change("\"x\"", 1, 3);
    table()->pushUndoCommand(new SetParsingStandardCommand(&model(), {}, ParsingStandard::SparseQuotes, false));
    model().setAndApplyHiddenRowsList({0});
    model().setAndApplyHiddenColsList({1});
    box.next("Show Cells");
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_EQ(selection(), "C0,2*");
}

TEST_F(SaveFlowTest, ASaveUnderAnotherNameTakesItsDialectAndACopyOfTheVisibleLeavesTheTable) {
    open("1,2\n3,4\n");
    TableView* const first = table();
    EXPECT_TRUE(window.saveFileUnder(first, directory.filePath("b.tsv"), false));
    EXPECT_EQ(read("b.tsv"), "1\t2\n3\t4\n");
    EXPECT_EQ(window.windowTitle(), "b.tsv - Gridwright");
    first->tableModel()->getTableData().concealRawRow(0);
    EXPECT_TRUE(window.saveFileUnder(first, directory.filePath("c.csv"), true));
    EXPECT_EQ(read("c.csv"), "3,4\n");
    EXPECT_EQ(first->getFilepath(), directory.filePath("b.tsv"));
    EXPECT_EQ(first->tableModel()->getSaveDelimiter(), "\t");
    EXPECT_EQ(table()->getFilepath(), directory.filePath("c.csv"));
}

TEST_F(SaveFlowTest, EachAnswerToTheDelimiterOnlyQuestionEndsInItsOwnFile) {
    struct Case {
        char const* button;
        QStringList choices; ///< of the launcher, titles and answers in turn
        char const* saved;   ///< what the file holds then, null for nothing new
        char const* pane;    ///< what the main cell shows
    };
    QString const standard = "Select a different Parsing Standard:";
    QString const text = "Replace line breaks with:";
    std::vector<Case> const cases = {
        {"Cancel", {}, nullptr, "x\r\ny"},
        {"Remove", {}, "xy,1\npq,2\n", "xy"},
        {"Replace", {text, "Space"}, "x y,1\np q,2\n", "x y"},
        {"Replace", {text, "\\n"}, "x\\ny,1\np\\nq,2\n", "x\\ny"},
        {"Replace", {text, "Custom", "Custom Line Break Replacement:", "--"}, "x--y,1\np--q,2\n", "x--y"},
        {"Replace", {text, ""}, nullptr, "x\r\ny"},
        {"Change", {standard, "All Quotes"}, "\"x\r\ny\",\"1\"\n\"p\nq\",\"2\"\n", "x\r\ny"},
        {"Change", {standard, ""}, nullptr, "x\r\ny"},
    };
    setExtensions("dlm,\",\",LF,UTF-8,Delimiter Only\n");
    for (bool const saveAs : {false, true}) {
        for (Case const& each : cases) {
            SCOPED_TRACE(testing::Message() << each.button << ' ' << qPrintable(each.choices.join('|')) << saveAs);
            openWithLineBreaks();
            write("b.dlm", "old\n");
            QString const target = saveAs ? "b.dlm" : "a.csv";
            QByteArray const before = read(target);
            box.next(each.button);
            EXPECT_FALSE(saveAs ? window.saveFileUnder(table(), directory.filePath(target), false)
                                : window.saveFile(table()));
            for (int i = 0; i + 1 < each.choices.size(); i += 2) {
                if (each.choices[i + 1].isEmpty())
                    prompts.leave(each.choices[i]);
                else if (i == 0)
                    prompts.choose(each.choices[i], each.choices[i + 1]);
                else
                    prompts.answer(each.choices[i], each.choices[i + 1]);
            }
            EXPECT_EQ(read(target), each.saved == nullptr ? before : QByteArray(each.saved));
            EXPECT_EQ(cell(0, 0), each.pane);
            table()->undoStack()->setClean();
            window.closeFile(table());
        }
    }
    openWithLineBreaks();
    TableView* const whole = table();
    model().getTableData().concealRawCol(0); // a copy has nothing of these cells
    EXPECT_TRUE(window.saveFileUnder(table(), directory.filePath("c.dlm"), true));
    EXPECT_EQ(read("c.dlm"), "1\n2\n");

    whole->tableModel()->setAndApplyHiddenColsList({});
    whole->tableModel()->setAndApplyHiddenRowsList({0});
    box.next("Remove");
    window.saveFileUnder(whole, directory.filePath("d.dlm"), true);
    EXPECT_EQ(read("d.dlm"), "pq,2\n");
    EXPECT_EQ(whole->tableModel()->getTableData().getValueRaw(0, 0).toString(), "x\r\ny") << "not in the copy";
}

TEST_F(SaveFlowTest, ASaveOrCopyUnderAnotherNameThatFailsLeavesCellsAndDialectAsTheyWere) {
    QByteArray const content = "\"日本\",\xff\nxé,й\n";
    setExtensions("lat,tab,CRLF,ISO 8859-5,All Quotes\n");
    for (bool const copy : {false, true}) {
        SCOPED_TRACE(copy);
        QString const path = open(content);
        change("more", 0, 1);
        QString const before = dialect();
        box.next("Change Anyway");
        box.next("OK");
        EXPECT_FALSE(window.saveFileUnder(table(), directory.filePath("no folder/b.lat"), copy));
        EXPECT_EQ(dialect(), before);
        EXPECT_EQ(shown(), "日本 more|xé й");
        EXPECT_EQ(table()->getFilepath(), path);
        EXPECT_FALSE(table()->undoStack()->isClean());
        EXPECT_TRUE(window.saveFile(table()));
        EXPECT_EQ(read("a.csv"), "日本,more\nxé,й\n");
        table()->undo();
        EXPECT_TRUE(window.saveFile(table()));
        EXPECT_EQ(read("a.csv"), "日本,\xff\nxé,й\n");
        window.closeFile(table());
    }
}

TEST_F(SaveFlowTest, ASaveInAnotherEncodingTellsWhatItCannotCarryAndCanBeUndoneLikeAllBeforeIt) {
    setExtensions("lat,tab,CRLF,ISO 8859-5,RFC 4180\n");
    open("日本,1,è\nxé,й,\n");
    change("", 0, 0);
    change("", 1, 0);
    QString const before = dialect();
    QString const target = directory.filePath("b.lat");
    box.next("Cancel");
    EXPECT_FALSE(window.saveFileUnder(table(), target, false));
    EXPECT_EQ(box.texts().value(0), "1 cell holds characters that ISO 8859-5 cannot carry.");
    table()->undo();
    box.next("Show Cells");
    EXPECT_FALSE(window.saveFileUnder(table(), target, false));
    EXPECT_EQ(box.texts().value(1), "2 cells hold characters that ISO 8859-5 cannot carry.");
    EXPECT_EQ(selection(), "C0,2* C1,0");
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_EQ(dialect(), before);
    table()->redo();

    box.next("Change Anyway");
    EXPECT_TRUE(window.saveFileUnder(table(), target, false));
    EXPECT_EQ(read("b.lat"), "\t1\t?\r\n\t\xd9\t\r\n");
    EXPECT_EQ(label(StatusBar::Label::Encoding), "ISO 8859-5 (Latin/Cyrillic)");
    EXPECT_EQ(shown(), "- 1 ?|- й -");
    EXPECT_TRUE(table()->undoStack()->isClean());
    EXPECT_EQ(read("a.csv"), "日本,1,è\nxé,й,\n");
    table()->undo();
    EXPECT_EQ(label(StatusBar::Label::Encoding), "UTF-8");
    EXPECT_EQ(shown(), "- 1 è|- й -");
    table()->undo();
    table()->undo();
    EXPECT_EQ(shown(), "日本 1 è|xé й -");
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("b.lat"), "日本\t1\tè\r\nxé\tй\t\r\n") << "in what the status bar tells";
    for (int i = 0; i < 3; ++i)
        table()->redo();
    EXPECT_TRUE(window.saveFile(table()));
    EXPECT_EQ(read("b.lat"), "\t1\t?\r\n\t\xd9\t\r\n");
}

TEST_F(SaveFlowTest, AChangeOfTheEncodingTellsWhatItCannotCarryBeforeIt) {
    open("日本,1\nxé,й\n");
    QString const before = dialect();
    box.next("Cancel");
    run("Set Encoding for File Save", {"ISO 8859-1"});
    EXPECT_EQ(box.texts().value(0), "2 cells hold characters that ISO 8859-1 cannot carry.");
    EXPECT_EQ(box.defaults().value(0), "Cancel");
    box.next("Show Cells");
    run("Set Parameters for File Save", {"tab", "Windows", "ISO 8859-1", "All Quotes"});
    EXPECT_EQ(selection(), "C0,0* C1,1");
    EXPECT_EQ(dialect(), before) << "nothing of it";
    EXPECT_TRUE(table()->undoStack()->isClean());

    box.next("Change Anyway");
    run("Set Encoding for File Save", {"ISO 8859-1"});
    EXPECT_EQ(shown(), "?? 1|xé ?");
    run("Set Encoding for File Save", {"UTF-16LE"}); // carries all
    table()->undo();
    table()->undo();
    EXPECT_EQ(shown(), "日本 1|xé й");
    box.next("Change Anyway", [&] { window.closeFile(table()); });
    run("Set Encoding for File Save", {"ISO 8859-1"});
}

TEST_F(SaveFlowTest, AnEditThatTheEncodingCannotCarryIsToldInTheStatusBar) {
    open("a,b\nc,d\n");
    run("Set Encoding for File Save", {"Windows-1252"});
    auto const message = [&] { return window.getStatusBar()->currentMessage().toStdString(); };
    change(QStringLiteral("x日"));
    EXPECT_EQ(shown(), "x? b|c d");
    EXPECT_EQ(message(), "The text of 1 cell holds characters that Windows-1252 cannot carry; they were written as "
                         "\"?\".");
    table()->undo();
    EXPECT_EQ(message(), "");
    RangeSet const cells(CellRegion({0, 0, 1, 1}));
    table()->pushUndoCommand(new SetModelDataCommand(&model(), cells, QStringLiteral("日"), true));
    EXPECT_EQ(message(), "The texts of 4 cells hold characters that Windows-1252 cannot carry; they were written as "
                         "\"?\".");
    change("é", 0, 0);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(shown(), "é ?|? ?");
}

TEST_F(SaveFlowTest, BytesWithoutMeaningStayWhereTheEncodingStaysAndACopyIsInThatOfItsName) {
    setExtensions("lat,tab,CRLF,ISO 8859-5,RFC 4180\n");
    open("й,\xff\n2,3\n");
    EXPECT_TRUE(window.saveFileUnder(table(), directory.filePath("b.csv"), false));
    EXPECT_EQ(read("b.csv"), "й,\xff\n2,3\n");
    TableView* const first = table();
    first->tableModel()->getTableData().concealRawCol(1);
    EXPECT_TRUE(window.saveFileUnder(first, directory.filePath("c.lat"), true));
    EXPECT_EQ(read("c.lat"), "\xd9\r\n2\r\n");
    EXPECT_EQ(shown(), "й|2"); // of the copy
    EXPECT_EQ(first->tableModel()->getEncoding(), EncodingType::Utf8);
    EXPECT_TRUE(window.saveFile(first));
    EXPECT_EQ(read("b.csv"), "й,\xff\n2,3\n");
}

TEST_F(SaveFlowTest, ATableBehindAnotherComesToTheFrontToBeAskedAboutItsLineBreaks) {
    openWithLineBreaks();
    open("1\n", "b.csv");
    box.next("Replace");
    window.commandSaveAllFiles();
    EXPECT_EQ(window.windowTitle(), "a.csv - Gridwright");
    prompts.choose("Replace line breaks with:", "Space");
    EXPECT_EQ(read("a.csv"), "x y,1\np q,2\n");
    EXPECT_EQ(read("b.csv"), "1\n");
}

TEST_F(SaveFlowTest, ATableThatIsClosedWhileItsLineBreaksAreAskedAboutIsNotSaved) {
    openWithLineBreaks();
    box.next("Replace");
    EXPECT_FALSE(window.saveFile(table()));
    prompts.expect("Replace line breaks with:");
    QFile::remove(directory.filePath("a.csv"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return table()->getFilepath().isEmpty(); }));
    if (window.getPrompts()->currentTitle() != QString())
        prompts.choose("Replace line breaks with:", "Space");
    EXPECT_EQ(read("a.csv"), "unreadable");
}

TEST_F(SaveFlowTest, AReloadSortsAgainWithoutClaimingEditsOrWritingTheFile) {
    toggle("Save After Each Edit");
    open("h\nb\nc\na\n");
    table()->sortRowsOrCols({SortType::Ascending, Axis::Rows, 0});
    EXPECT_EQ(read("a.csv"), "h\na\nb\nc\n");
    EXPECT_TRUE(table()->undoStack()->isClean());
    for (QByteArray const outside : {"h\nz\ny\nx\n", "h\nr\nq\np\nlonger\n"}) { // nothing is asked
        write("a.csv", outside);
        QString const first = outside.contains('z') ? "x" : "longer";
        EXPECT_TRUE(QTest::qWaitFor([&] { return cell(1, 0) == first; }));
        EXPECT_EQ(read("a.csv"), outside);
        EXPECT_FALSE(table()->undoStack()->isClean());
    }
    write("a.csv", "h\nin order\nof itself\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(1, 0) == "in order"; }));
    EXPECT_TRUE(table()->undoStack()->isClean());
    table()->sortRowsOrCols({SortType::Descending, Axis::Columns, 1});
    for (QByteArray const outside : {"h,i\n1,2\n", "h,i,j,k,l\n2,1,3,5,4\n"}) {
        write("a.csv", outside);
        QString const first = outside.contains('5') ? "5" : "2";
        EXPECT_TRUE(QTest::qWaitFor([&] { return cell(1, 0) == first; }));
        EXPECT_EQ(model().getColSortData(), (SortData{SortType::Descending, Axis::Columns, 1}));
        EXPECT_EQ(read("a.csv"), outside);
    }
    EXPECT_EQ(shown(), "k l j h i|5 4 3 2 1");
    toggle("Save After Each Edit");
}

TEST_F(SaveFlowTest, AReloadStaysAtItsPlaceAndSortsOnlyWhereTheSettingSaysSo) {
    window.resize(400, 300);
    window.show();
    QByteArray rows = QByteArray("h,").repeated(30) + '\n' + QByteArray("b\na\n").repeated(50);
    open(rows);
    table()->sortRowsOrCols({SortType::Ascending, Axis::Rows, 0});
    table()->undoStack()->setClean();
    table()->verticalScrollBar()->setValue(240);
    table()->horizontalScrollBar()->setValue(160);
    for (bool const retain : {true, false}) {
        set(QByteArray("Retain Sort and Filters Upon File Refresh,") + (retain ? "true" : "false"));
        rows += "c\n";
        write("a.csv", rows);
        int const count = int(rows.count('\n'));
        EXPECT_TRUE(QTest::qWaitFor([&] { return model().rowCountRaw() == count; }));
        EXPECT_EQ(cell(1, 0), retain ? "a" : "b");
        EXPECT_EQ(table()->verticalScrollBar()->value(), 240);
        EXPECT_EQ(table()->horizontalScrollBar()->value(), 160);
    }
}

TEST_F(SaveFlowTest, TheSortOfAReloadWaitsForTheKeysAndForAnOpenText) {
    HeldClock clock;
    open("h\nb\na\n");
    show();
    table()->sortRowsOrCols({SortType::Ascending, Axis::Rows, 0});
    table()->undoStack()->setClean();
    auto const reload = [&](QByteArray const& bytes) {
        int const rows = int(bytes.count('\n'));
        write("a.csv", bytes);
        EXPECT_TRUE(QTest::qWaitFor([&] { return model().rowCountRaw() == rows && !table()->isLoading(); }));
    };
    QObject::connect(table(), &TableView::loadBegunSignal, &TypingGuard::noteKey); // a user who types elsewhere
    reload("h\nd\nc\nb\n");
    EXPECT_EQ(stored(), "h|d|c|b");
    clock.pass(TypingGuard::stillMs);
    EXPECT_EQ(stored(), "h|b|c|d");
    reload("h\ne\nd\nc\nb\n");
    select("C0,0*");
    typeText("t");
    clock.pass(2 * TypingGuard::idleMs);
    EXPECT_EQ(stored(), "h|e|d|c|b");
    typeText("op");
    enter();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        clock.pass(TypingGuard::stillMs);
        return stored() == "top|b|c|d|e";
    })) << stored();
    box.next("Reload"); // the text is an edit
    write("a.csv", "h\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model().rowCountRaw() == 1; }));
}

TEST_F(SaveFlowTest, AReloadThatCannotBeSortedAgainTellsSo) {
    open("h,i\nb,2\na,1\n");
    table()->sortRowsOrCols({SortType::Ascending, Axis::Rows, 1});
    table()->undoStack()->setClean();
    write("a.csv", "h\nb\na\n");
    auto const isTold = [&] {
        return window.getStatusBar()->currentMessage() == "a.csv was read again and is not sorted any more.";
    };
    EXPECT_TRUE(QTest::qWaitFor(isTold));
}

TEST_F(SaveFlowTest, TwoTablesNeverComeToStandOnOneFile) {
    QString const other = write("b.csv", "theirs\n");
    window.openFile(other);
    TableView* const first = table();
    open("mine\n");
    TableView* const own = table();
    box.next("OK");
    EXPECT_FALSE(window.saveFileUnder(own, other, false));
    EXPECT_TRUE(box.texts().last().startsWith("This file is open in another tab:\n" + other));
    EXPECT_EQ(read("b.csv"), "theirs\n");
    EXPECT_EQ(own->getFilepath(), directory.filePath("a.csv"));
    window.setActiveTable(first);
    change("edited");
    box.next("OK");
    EXPECT_FALSE(window.saveFileUnder(own, other, true));
    EXPECT_EQ(read("b.csv"), "theirs\n");
    first->undo();
    EXPECT_TRUE(window.saveFileUnder(own, other, true));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "mine"; }));
}

TEST_F(SaveFlowTest, AnAutomaticSaveDoesNotWriteLineBreaksThatWouldReadBackAsRows) {
    openWithLineBreaks();
    QByteArray const before = read("a.csv");
    model().setAndApplyHiddenRowsList({1}); // what is hidden is saved too
    toggle("Save After Each Edit");
    box.next("OK");
    change("plain");
    EXPECT_TRUE(box.texts().last().endsWith("Reason: Cannot save as Delimiter Only. 1 cell contains line breaks."));
    EXPECT_EQ(read("a.csv"), before);
    EXPECT_TRUE(table()->hasAutoSaveFailed());
    model().setAndApplyHiddenRowsList({});
    change("too", 1);
    EXPECT_EQ(read("a.csv"), "plain,1\ntoo,2\n");
    EXPECT_FALSE(table()->hasAutoSaveFailed());
    toggle("Save After Each Edit");
}

TEST_F(SaveFlowTest, ASaveOfAllTablesGoesOnAfterOneThatFails) {
    QString const first = write("a.csv", "1\n");
    window.openFile(first);
    change("x");
    open("1\n\n\n", "b.csv");
    change("y");
    open("2\n\n", "c.csv");
    toggle("Remove Extraneous Rows/Columns on File Save");
    QFile::remove(first);
    QDir().mkdir(first); // a file cannot take the place of a folder
    box.next("OK");
    window.commandSaveAllFiles();
    EXPECT_TRUE(box.texts().last().startsWith("File failed to save.\n\nFile: " + first));
    EXPECT_EQ(read("b.csv"), "y\n");
    EXPECT_EQ(read("c.csv"), "2\n");
    EXPECT_EQ(window.windowTitle(), "c.csv - Gridwright");
    EXPECT_FALSE(window.getPaneView()->getTableView(first)->undoStack()->isClean());
    toggle("Remove Extraneous Rows/Columns on File Save");
}

TEST_F(SaveFlowTest, ATableWhoseSaveBeforeItsCloseFailsStaysOpen) {
    QString const path = open("1\n");
    set("Behavior When File Is Changed Externally,ignore");
    change("mine");
    QFile::remove(path);
    QDir().mkdir(path);
    box.next("Save");
    box.next("OK");
    window.closeFile(table());
    EXPECT_EQ(table()->getFilepath(), path);
    EXPECT_EQ(shown(), "mine");
    EXPECT_FALSE(table()->undoStack()->isClean());
}

TEST_F(SaveFlowTest, AskAndIgnoreGovernWhatAnOutsideChangeDoes) {
    set("Behavior When File Is Changed Externally,ask");
    open("1\n");
    box.next("Don't Reload");
    write("a.csv", "22\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }));
    EXPECT_EQ(box.texts().value(0), "This file has been changed externally.\n\nWould you like to reload it?");
    EXPECT_EQ(box.namedFiles().value(0), table()->getFilepath());
    EXPECT_EQ(box.defaults().value(0), "Reload");
    EXPECT_EQ(cell(0, 0), "1");
    change("mine");
    box.next("Reload");
    write("a.csv", "333\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "333"; }));
    EXPECT_TRUE(box.namedFiles().last().endsWith("Your unsaved changes would be lost."));
    set("Behavior When File Is Changed Externally,ignore");
    write("a.csv", "4444\n");
    EXPECT_FALSE(QTest::qWaitFor([&] { return cell(0, 0) != "333"; }, 300));
    set("Behavior When File Is Changed Externally,refresh");
    write("a.csv", "55555\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "55555"; }));
}

TEST_F(SaveFlowTest, ALargeCopyIsOpenedAsTheUserSays) {
    set("Minimum File Size for Read-Only Mode Query (MB),0");
    box.next("Open in Edit Mode");
    open("1,2\n");
    TableView* const own = table();
    for (QString const answer : {"Read-Only\nMode", "Edit Mode", "Don't Open"}) {
        QString const copy = directory.filePath(answer.left(4) + ".csv");
        box.next(answer);
        EXPECT_TRUE(window.saveFileUnder(own, copy, true));
        EXPECT_EQ(box.defaults().last(), "Read-Only\nMode");
        EXPECT_EQ(box.texts().last(), "The new file is large (0 MB).\nHow would you like to open it?");
        TableView const* const opened = window.getPaneView()->getTableView(copy);
        ASSERT_EQ(opened != nullptr, answer != "Don't Open");
        EXPECT_TRUE(opened == nullptr || opened->isReadOnly() == answer.startsWith("Read"));
    }
}

TEST_F(SaveFlowTest, AFileFromTheThresholdOnIsOpenedAsTheUserSays) {
    set("Minimum File Size for Read-Only Mode Query (MB),1");
    constexpr int mebibyte = 1048576;
    QString const below = write("below.csv", QByteArray(mebibyte - 1, 'x'));
    QString const first = write("first.csv", QByteArray(mebibyte, 'x'));
    QString const second = write("second.csv", QByteArray(mebibyte, 'x'));
    QString const third = write("third.csv", QByteArray(mebibyte, 'x'));
    box.next("Cancel");
    box.next("Open as Read-Only");
    box.next("Open in Edit Mode");
    EXPECT_TRUE(window.openFiles({below, first, second, third}));
    EXPECT_EQ(box.texts().first(), "This file is large (1 MB).\nWould you like to open it in read-only mode?");
    EXPECT_EQ(box.namedFiles(), (QStringList{first, second, third}));
    EXPECT_EQ(box.defaults().first(), "Open as Read-Only");
    auto const opened = [&](QString const& path) { return window.getPaneView()->getTableView(path); };
    EXPECT_FALSE(opened(below)->isReadOnly());
    EXPECT_EQ(opened(first), nullptr);
    EXPECT_TRUE(opened(second)->isReadOnly());
    EXPECT_FALSE(opened(third)->isReadOnly());
}

TEST_F(SaveFlowTest, ASaveWhileTheFileIsReadAgainIsRefused) {
    QString const path = open("1\n");
    write("a.csv", "2\n" + QByteArray(8 << 20, 'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return table()->isLoading(); }));
    EXPECT_FALSE(window.saveFile(table()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "2"; }));
    EXPECT_EQ(read("a.csv").size(), 2 + (8 << 20));
}
