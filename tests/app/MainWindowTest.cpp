#include "app/LoadProgressOverlay.h"
#include "app/TabBar.h"
#include "commands/HandlerName.h"
#include "model/undo/DialectCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/SetEncodingCommand.h"
#include "tests/app/WindowFixture.h"

#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTabBar>
#include <QToolButton>

#include <sys/stat.h>

using MainWindowTest = WindowFixture;

TEST_F(MainWindowTest, AWindowStartsWithAnUntitledTableThatTheFirstFileReplaces) {
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
    EXPECT_TRUE(window.openFile(write("a.csv", "a;b;c\n1;2;3\n")));
    EXPECT_EQ(window.windowTitle(), "a.csv - Gridwright");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    EXPECT_EQ(cell(1, 2), "3");
    EXPECT_EQ(label(StatusBar::Label::TableSize), "2 rows x 3 columns");
    EXPECT_EQ(label(StatusBar::Label::Delimiter), "Delimiters (Load, Save): semi-colon (;), comma (,)");
    EXPECT_EQ(label(StatusBar::Label::Encoding), "UTF-8");
    EXPECT_EQ(label(StatusBar::Label::LineEnding), "Unix");
    EXPECT_EQ(label(StatusBar::Label::Mode), "Editable");
}

TEST_F(MainWindowTest, FilesOpenInTabsOnceEachAndTheLastCloseLeavesAnEmptyTable) {
    QString const first = write("a.csv", "x\n");
    QString const second = write("b.tsv", "1\t2\n");
    EXPECT_TRUE(window.openFiles({first, directory.filePath("./a.csv"), second}));
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    EXPECT_EQ(window.getActiveTable()->getFilepath(), first);
    window.openFile(second);
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    EXPECT_EQ(label(StatusBar::Label::Delimiter), "Delimiter: tab");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(window.windowTitle(), "a.csv - Gridwright");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
    change("kept");
    window.commandNewFile();
    window.openFile(first); // in the place of the untouched table in front, and of no other
    window.commandNewFile();
    window.setActiveTable(window.getPaneView()->getTableView(first));
    window.openFile(second);
    EXPECT_EQ(window.getPaneView()->getTables().size(), 4U);
    box.next("Cancel");
    window.commandCloseAllFiles();
    EXPECT_EQ(cell(0, 0), "kept");
}

TEST_F(MainWindowTest, WhatIsNoTableIsToldAndTheRestStillOpens) {
    QString const fifo = directory.filePath("fifo.csv");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QString const good = write("good.csv", "a,b\n");
    box.next("OK");
    EXPECT_TRUE(window.openFiles({fifo, good}));
    EXPECT_EQ(box.texts().value(0),
              QString("This can't be opened as a table:\n%1\n\nIt is not a regular file.").arg(fifo));
    EXPECT_EQ(window.windowTitle(), "good.csv - Gridwright");
    box.next("OK");
    window.openFolder("/a folder");
    EXPECT_EQ(box.texts().last(), "This can't be opened as a table:\n/a folder\n\nIt is a folder.");
}

TEST_F(MainWindowTest, SavingWritesTheDialectBackAndAFailureIsToldAndLosesNothing) {
    QString const path = write("a.csv", "a,\"b\"\"c\"\n,\n");
    window.openFile(path);
    window.commandSaveFile();
    EXPECT_EQ(read(path), "a,\"b\"\"c\"\n,\n");

    QFile::remove(path);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    box.next("OK");
    EXPECT_FALSE(window.saveFile(window.getActiveTable()));
    EXPECT_EQ(box.texts().value(0),
              QString("File failed to save.\n\nFile: %1\nReason: The path names something that is not a "
                      "regular file.")
                  .arg(path));
    EXPECT_EQ(cell(0, 1), "b\"c");
    EXPECT_EQ(window.getActiveTable()->getFilepath(), path);
}

TEST_F(MainWindowTest, EveryCommandHasOneHandlerAndEveryHandlerACommand) {
    QMultiMap<QByteArray, bool> handlers; // by name, whether it is built
    QMetaObject const& meta = MainWindow::staticMetaObject;
    for (int i = UnbuiltCommands::staticMetaObject.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).name().startsWith("command")) {
            handlers.insert(meta.method(i).name(), i >= meta.methodOffset());
        }
    }
    Commands commands;
    commands.populate(nullptr);
    for (Command const& command : commands.sorted()) {
        EXPECT_EQ(handlers.remove(commandHandlerName(command.name).toLatin1()), 1) << qPrintable(command.name);
    }
    EXPECT_TRUE(handlers.isEmpty()) << handlers.firstKey().constData();
}

TEST_F(MainWindowTest, ACommandThatIsNotBuiltYetSaysSo) {
    box.next("OK");
    window.runCommand("Check for Updates");
    EXPECT_EQ(box.texts().value(0), "Check for Updates\n\nThis version of Gridwright cannot do this yet.");
}

TEST_F(MainWindowTest, LargeSelectionsAreSummedInTheBackground) {
    QString const waiting = "Sum: ...    Mean: ...";
    window.openFile(write("n.csv", QByteArray("1\n").repeated(4997))); // and two rows to type into
    window.commandSelectEntireColumns();
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 4,997      Mean: 1");
    window.openFile(write("m.csv", QByteArray("2\n").repeated(4998)));
    window.commandSelectEntireColumns();
    EXPECT_EQ(label(StatusBar::Label::Stats), waiting);
    QTRY_COMPARE(label(StatusBar::Label::Stats), QString("Sum: 9,996      Mean: 2"));

    window.commandSelectEntireTable();
    EXPECT_EQ(label(StatusBar::Label::Stats), waiting);
    window.closeFile(window.getActiveTable()); // the sum of a closed table goes to no other
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 4,997      Mean: 1");
    QTest::qWait(50);
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 4,997      Mean: 1");
}

TEST_F(MainWindowTest, TheSumIsAlwaysThatOfThePresentSelection) {
    window.openFile(write("a.csv", "1,2,40\n3,5,70\n100,200,400\n"));
    TableView& table = *window.getActiveTable();
    auto const sum = [&] { return label(StatusBar::Label::Stats).section("      ", 0, 0); };
    auto const key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&table, code, modifiers);
        return sum();
    };
    EXPECT_EQ(sum(), "Sum: 1");
    EXPECT_EQ(key(Qt::Key_Down), "Sum: 3");
    EXPECT_EQ(key(Qt::Key_Right), "Sum: 5");
    EXPECT_EQ(key(Qt::Key_Up), "Sum: 2");
    EXPECT_EQ(key(Qt::Key_Tab), "Sum: 40");
    EXPECT_EQ(key(Qt::Key_Return), "Sum: 5"); // back to where the row of tabs began
    window.runCommand("Move Selection Down by a Block");
    EXPECT_EQ(sum(), "Sum: 200");
    table.tableModel()->addCellToSelection(Range(1, 2, RangeIndexType::Model));
    EXPECT_EQ(sum(), "Sum: 270");
    table.tableModel()->removeCellFromSelection(1, 2);
    EXPECT_EQ(sum(), "Sum: 200");
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 1 cell");
    // An edit and its undo.
    window.commandGoToTop();
    EXPECT_EQ(sum(), "Sum: 2");
    change("7", 0, 1);
    EXPECT_EQ(sum(), "Sum: 7");
    window.commandUndo();
    EXPECT_EQ(sum(), "Sum: 2");
    // What is hidden does not count, nor what the selection leaves out.
    model().setAndApplyHiddenRowsList({1});
    for (auto const& [ranges, expected] :
         {std::pair("K1,0", "Sum: 202"), std::pair("R1,1", "Sum: 600"), std::pair("T0,0", "Sum: 743"),
          std::pair("C0,0 K0,1 C1,2", "Sum: 501"), std::pair("C0,1", "Sum: 2")}) {
        select(ranges);
        EXPECT_EQ(sum(), expected) << ranges;
    }
    window.runCommand("Select Down");
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 1 x 2");
    window.runCommand("Select Entire Row(s)");
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 2 rows");
}

TEST_F(MainWindowTest, ALargeFileLoadsBehindItsProgressAndCanBeClosedMeanwhile) {
    QByteArray const line = QByteArray(999, 'x') + ",y\n";
    QString const path = write("large.csv", line.repeated(27000));
    window.show();
    QSignalSpy loaded(window.getPaneView(), &PaneView::tableLoadedSignal);
    window.openFile(path);
    auto const* const overlay = window.getPaneView()->findChild<LoadProgressOverlay*>();
    EXPECT_TRUE(overlay->isVisible());
    EXPECT_EQ(label(StatusBar::Label::TableSize), "Loading ...");
    ASSERT_TRUE(loaded.wait(20000));
    EXPECT_FALSE(overlay->isVisible());
    EXPECT_EQ(label(StatusBar::Label::TableSize), "27,000 rows x 2 columns");
    EXPECT_EQ(cell(26999, 1), "y");

    QString const other = write("other.csv", line.repeated(27000));
    window.openFile(other);
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(window.windowTitle(), "large.csv - Gridwright");
}

/// What a user sees in the end, at the keyboard. The tables are a.csv, b.csv ..., each with its name in its cell.
class WindowFlows : public WindowFixture {
protected:
    void SetUp() override {
        window.resize(900, 600);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void openAll(QStringList const& names) {
        for (QString const& name : names)
            open(name.toUtf8() + ",2\n3,4\n", name + ".csv");
    }
    static void type(QString const& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    TableView* tableOf(QString const& name) const {
        return window.getPaneView()->getTableView(directory.filePath(name + ".csv"));
    }
    QString title() const { return window.windowTitle().section(QLatin1Char('.'), 0, 0); }
    /// The names of the tabs from left to right.
    QString tabs() const {
        auto const& bar = *window.findChild<TabBar*>();
        QString names;
        for (int i = 0; i < bar.count(); ++i)
            names += bar.tableAt(i)->tableModel()->getTableName().section(QLatin1Char('.'), 0, 0);
        return names;
    }
};

TEST_F(WindowFlows, AnOpenEditIsKeptWhateverTheUserTurnsTo) {
    struct {
        char const* turn;   ///< what ends the edit
        char const* button; ///< the answer, where that asks
        char const* file;   ///< what a.csv holds then
        char const* title;  ///< of the table in front
    } const cases[] = {
        {"Save File", nullptr, "a,x\n3,4\n", "a"},
        {"Save All Files", nullptr, "a,x\n3,4\n", "a"},
        {"Switch to Tab on the Right", nullptr, "a,2\n3,4\n", "b"},
        {"New File", nullptr, "a,2\n3,4\n", "untitled - Gridwright"},
        {"Close File", "Cancel", "a,2\n3,4\n", "a"},
        {"Reload File", "Cancel", "a,2\n3,4\n", "a"},
        {"Toggle Read-Only", "Cancel", "a,2\n3,4\n", "a"},
        {"Close File", "Save", "a,x\n3,4\n", "b"},
        {"Close All Files Except Current", nullptr, "a,2\n3,4\n", "a"},
        {"Close File", "Don't Save", "a,2\n3,4\n", "untitled - Gridwright"},
    };
    for (auto const& test : cases) {
        SCOPED_TRACE(std::string(test.turn) + ' ' + (test.button == nullptr ? "" : test.button));
        openAll({"b"});
        openAll({"a"});
        window.runCommand("Switch to Tab 1");
        bool const last = test.title[0] == 'u' && test.button != nullptr;
        if (last)
            window.closeFile(tableOf("b"));
        window.setActiveTable(tableOf("a"));
        select("C0,1");
        type("x");
        ASSERT_TRUE(table()->isEditing());
        if (test.button != nullptr)
            box.next(test.button);
        window.runCommand(test.turn);
        EXPECT_EQ(read("a.csv"), test.file);
        EXPECT_EQ(title(), test.title);
        if (TableView* const own = tableOf("a")) {
            window.setActiveTable(own);
            EXPECT_FALSE(own->isEditing());
            EXPECT_EQ(shown(), "a x|3 4");
            EXPECT_EQ(own->undoStack()->count(), 1);
            window.runCommand("Undo");
            EXPECT_EQ(shown(), "a 2|3 4");
            own->undoStack()->setClean();
        }
        window.commandCloseAllFiles();
    }
}

TEST_F(WindowFlows, WhatIsTypedIntoSeveralCellsLeavesHiddenOnesBetweenThemAlone) {
    open("h,i,j\na,1,p\nb,2,q\nc,3,r\n");
    model().setAndApplyHiddenRowsList({2});
    model().setAndApplyHiddenColsList({1});
    select("C1,0 C1,1 C2,0");
    type("l");
    type("ong"); // into the editor
    EXPECT_EQ(label(StatusBar::Label::CellLength), "Cell Length: 4");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(stored(), "h (i) j|long (1) long|(b (2) q)|long (3) r");
    EXPECT_EQ(selection(), "C2,0* C2,1 C3,0");
    window.runCommand("Undo");
    EXPECT_EQ(label(StatusBar::Label::CellLength), "Cell Length: 1");
    EXPECT_EQ(stored(), "h (i) j|a (1) p|(b (2) q)|c (3) r");
    EXPECT_EQ(selection(), "C1,0* C1,1 C2,0");
}

TEST_F(WindowFlows, TheTabToTheLeftFollowsOneThatIsClosedAndOthersLeaveTheActiveOneAlone) {
    struct {
        char const* active;
        char const* closed;
        char const* front;
        char const* left;
    } const cases[] = {{"c", "c", "b", "abd"},
                       {"a", "a", "b", "bcd"},
                       {"d", "d", "c", "abc"},
                       {"b", "d", "b", "abc"},
                       {"c", "a", "c", "bcd"}};
    for (auto const& test : cases) {
        openAll({"a", "b", "c", "d"});
        ASSERT_EQ(tabs(), "abcd");
        window.setActiveTable(tableOf(test.active));
        EXPECT_TRUE(window.closeFile(tableOf(test.closed)));
        EXPECT_EQ(title(), test.front) << test.closed;
        EXPECT_EQ(cell(0, 0), test.front);
        EXPECT_EQ(tabs(), test.left);
        EXPECT_TRUE(table()->hasFocus());
        window.commandCloseAllFiles();
    }
}

TEST_F(WindowFlows, EachTabTellsTheNameTheFileAndTheStateOfItsTableWhereverItIsMoved) {
    openAll({"a", "b", "c"});
    QTabBar& bar = *window.findChild<TabBar*>()->findChild<QTabBar*>();
    auto const texts = [&bar] {
        QStringList all;
        for (int i = 0; i < bar.count(); ++i)
            all << bar.tabText(i);
        return all.join(' ');
    };
    ::change(*tableOf("a"), "x");
    ::change(*tableOf("b"), "y");
    EXPECT_EQ(texts(), "\u25CF a.csv \u25CF b.csv c.csv");
    tableOf("a")->undo();
    EXPECT_EQ(texts(), "a.csv \u25CF b.csv c.csv");
    tableOf("a")->redo();
    bar.moveTab(0, 2);
    EXPECT_EQ(tabs(), "bca");
    EXPECT_EQ(title(), "c");
    EXPECT_TRUE(window.saveFile(tableOf("b")));
    EXPECT_TRUE(window.saveFileUnder(tableOf("a"), directory.filePath("d.csv"), false));
    EXPECT_EQ(texts(), "b.csv c.csv d.csv");
    EXPECT_EQ(title(), "c");
    EXPECT_EQ(bar.tabToolTip(2), directory.filePath("d.csv"));
    bar.setCurrentIndex(0);
    EXPECT_EQ(cell(0, 0), "y");
    window.commandNewFile();
    EXPECT_EQ(texts(), "b.csv untitled c.csv d.csv");
    emit bar.tabCloseRequested(2);
    EXPECT_EQ(texts(), "b.csv untitled d.csv");
    EXPECT_EQ(title(), "untitled - Gridwright");
}

TEST_F(WindowFlows, AWindowWhoseSecondQuestionIsCanceledKeepsWhatIsLeft) {
    openAll({"a", "b", "c"});
    for (char const* const name : {"a", "b"}) {
        window.setActiveTable(tableOf(name));
        change("changed");
    }
    box.next("Save");
    box.next("Cancel");
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(box.texts(),
              QStringList({"Do you want to save changes to b.csv?", "Do you want to save changes to a.csv?"}));
    EXPECT_EQ(box.defaults(), QStringList({"Save", "Save"}));
    EXPECT_EQ(read("b.csv"), "changed,2\n3,4\n");
    EXPECT_EQ(read("a.csv"), "a,2\n3,4\n");
    EXPECT_EQ(title(), "a");
    EXPECT_EQ(shown(), "changed 2|3 4");
    window.runCommand("Undo");
    EXPECT_TRUE(window.close());
}

TEST_F(WindowFlows, StatusBarAndCommandsKnowOfTheActiveTableOnly) {
    using Label = StatusBar::Label;
    openAll({"a", "b"});
    select("R1,0");
    window.runCommand("Hide Selected Row(s)");
    auto const labels = [this] { // and which commands are live
        QStringList texts;
        for (Command const& command : window.getCommands().sorted())
            texts << (command.action->isEnabled() ? command.name : QString());
        for (std::size_t i = 0; i < StatusBar::labelCount; ++i)
            texts << label(Label(i));
        return texts;
    };
    TableView& behind = *tableOf("a");
    TableModel& data = *behind.tableModel();
    QStringList const before = labels();
    EXPECT_TRUE(before.contains("Show All Hidden Row(s)"));
    QSignalSpy loaded(window.getPaneView(), &PaneView::tableLoadedSignal);
    behind.readFileAgain();
    EXPECT_TRUE(loaded.count() > 0 || loaded.wait());
    EXPECT_EQ(labels(), before);
    data.setSelection(modelCell(1, 0), rangesFrom("C1,0 C1,1"));
    behind.pushUndoCommand(new SetModelDataCommand(&data, data.getSelectedSet(), "longer than before", true));
    behind.pushUndoCommand(new InsertRowsCommand(&data, data.getSelectedSet(), 1, true, true));
    behind.pushUndoCommand(new SetEncodingCommand(&data, data.getSelectedSet(), EncodingType::Utf16LE, true));
    behind.pushUndoCommand(new SetDelimiterCommand(&data, data.getSelectedSet(), "|", true));
    behind.pushUndoCommand(new SetLineEndingCommand(&data, data.getSelectedSet(), LineEndingType::Windows, true));
    data.setAndApplyHiddenColsList({1});
    EXPECT_EQ(labels(), before);
    window.setActiveTable(&behind);
    EXPECT_EQ(label(Label::TableSize), "3 rows x 2 columns (3 rows x 1 column)");
    EXPECT_EQ(label(Label::Encoding), "UTF-16LE");
    EXPECT_EQ(label(Label::Delimiter), "Delimiters (Load, Save): comma (,), pipe (|)");
    EXPECT_EQ(label(Label::LineEnding), "Windows");
    window.setActiveTable(tableOf("b"));
    EXPECT_EQ(labels(), before);
}

TEST_F(WindowFlows, TheSizeInTheStatusBarFollowsATranspositionAndASelectionOfNothingHasNoSum) {
    using Label = StatusBar::Label;
    open("1,2,3\n4,5,6\n");
    run("Transpose Table");
    EXPECT_EQ(label(Label::TableSize), "3 rows x 2 columns");
    run("Undo");
    EXPECT_EQ(label(Label::TableSize), "2 rows x 3 columns");
    model().setAndApplyHiddenRowsList({0});
    run("Transpose Table");
    EXPECT_EQ(label(Label::TableSize), "3 rows x 2 columns (3 rows x 1 column)");
    run("Undo");
    window.resize(4000, 600);
    window.show();
    run("Select All");
    run("Hide Selected Row(s)");
    EXPECT_EQ(label(Label::Stats), "Sum: -      Mean: -");
    for (QLabel const* const each : window.getStatusBar()->findChildren<QLabel*>())
        EXPECT_TRUE(each->isVisible()) << qPrintable(each->accessibleName()) << qPrintable(each->text());
}

TEST_F(WindowFlows, AReloadAfterASetEncodingReadsTheFileInItsOwnAndAfterTheSaveInTheNewOne) {
    open("\xc3\xa9,1\n");
    run("Set Encoding for File Save", {"UTF-16LE"});
    EXPECT_EQ(label(StatusBar::Label::Encoding), "UTF-16LE");
    box.next("Discard");
    window.runCommand("Reload File");
    QTRY_VERIFY(!table()->isLoading());
    EXPECT_EQ(label(StatusBar::Label::Encoding), "UTF-8");
    EXPECT_EQ(shown(), "é 1");
    run("Set Encoding for File Save", {"UTF-16LE"});
    window.runCommand("Save File");
    EXPECT_EQ(read("a.csv"), QByteArray("\xe9\0,\0001\0\n\0", 8));
    window.runCommand("Reload File");
    QTRY_VERIFY(!table()->isLoading());
    EXPECT_EQ(label(StatusBar::Label::Encoding), "UTF-16LE");
    EXPECT_EQ(shown(), "é 1");
}

TEST(StatusBar, ALabelIsLeftOutOnlyWhereItsRoomIsMissing) {
    using Label = StatusBar::Label;
    QWidget window; // a bar that is a window of its own is never smaller than its labels
    StatusBar bar(&window);
    bar.setStyleSheet("QLabel { padding: 2px 5px; }");
    auto const shown = [&](Label label) {
        bar.layout()->activate();
        for (QLabel const* const each : bar.findChildren<QLabel*>()) {
            if (each->text() == bar.text(label))
                return each->isVisible();
        }
        return false;
    };
    constexpr int noLimit = 4000;
    bar.resize(noLimit, 30);
    window.show();
    for (std::size_t i = 0; i < StatusBar::labelCount; ++i)
        bar.setText(Label(i), QString("label %1 of all").arg(i));
    for (std::size_t i = 0; i < StatusBar::labelCount; ++i)
        EXPECT_TRUE(shown(Label(i))) << i;
    // What the layout itself says all of them need.
    bar.resize(bar.layout()->totalMinimumSize().width(), 30);
    EXPECT_TRUE(shown(Label::Stats));
    bar.resize(bar.width() - 1, 30);
    EXPECT_FALSE(shown(Label::Stats)); // the least of all
    EXPECT_TRUE(shown(Label::CellLength));
    bar.resize(bar.layout()->totalMinimumSize().width(), 30);
    EXPECT_TRUE(shown(Label::CellLength));
    bar.resize(bar.width() - 1, 30);
    EXPECT_FALSE(shown(Label::CellLength));
    bar.resize(noLimit, 30);
    EXPECT_TRUE(shown(Label::Stats));
}

TEST(StatusBar, ItStaysInsideItsWindowAndALabelThatIsTooLongLeavesTheOthersTheirRoom) {
    using Label = StatusBar::Label;
    QMainWindow window;
    window.setMinimumWidth(1);
    auto* const bar = new StatusBar(&window);
    window.setStatusBar(bar);
    for (std::size_t i = 0; i < StatusBar::labelCount; ++i)
        bar->setText(Label(i), QString("label %1 of all").arg(i));
    constexpr int noLimit = 4000;
    window.resize(noLimit, 200);
    window.show();
    auto const shown = [&] {
        QCoreApplication::sendPostedEvents();
        QStringList texts;
        for (QLabel const* const label : bar->findChildren<QLabel*>()) {
            if (!label->isVisible())
                continue;
            texts << label->text();
            EXPECT_GE(label->width(), label->sizeHint().width());
            EXPECT_LE(label->geometry().right(), bar->width());
        }
        return texts.size();
    };
    EXPECT_EQ(shown(), int(StatusBar::labelCount));
    int before = StatusBar::labelCount;
    for (int width = window.width(); width > 1; width = width * 9 / 10) {
        window.resize(width, 200);
        QCoreApplication::sendPostedEvents();
        EXPECT_LE(bar->width(), window.width());
        EXPECT_LE(shown(), before);
        before = shown();
    }
    EXPECT_EQ(before, 0);
    bar->setText(Label::TableSize, QString(5000, 'x'));
    window.resize(noLimit, 200);
    EXPECT_EQ(shown(), int(StatusBar::labelCount) - 1);
}

TEST(StatusBar, AMessageHasThePlaceOfWhatStandsAtTheLeft) {
    QMainWindow window;
    auto* const bar = new StatusBar(&window);
    window.setStatusBar(bar);
    auto const* const left = bar->findChildren<QToolButton*>().value(0);
    bar->showMessage("a message");
    window.show();
    EXPECT_FALSE(left->isVisible());
    bar->clearMessage();
    EXPECT_TRUE(left->isVisible());
}

TEST(StatusBar, SizesAreWrittenWithSeparatorsPluralsAndWhatIsVisible) {
    EXPECT_EQ(StatusBar::tableSizeText(1, 1, 1, 1), "1 row x 1 column");
    EXPECT_EQ(StatusBar::tableSizeText(1234567, 0, 1234567, 0), "1,234,567 rows x 0 columns");
    EXPECT_EQ(StatusBar::tableSizeText(10, 2, 1, 2), "10 rows x 2 columns (1 row x 2 columns)");
    EXPECT_EQ(StatusBar::tableSizeText(10, 3, 10, 2), "10 rows x 3 columns (10 rows x 2 columns)");
    std::pair<RangeSize, char const*> const selections[] = {
        {{7, 2, 1, 0, 0}, "2 rows, 1 column"},
        {{7, 0, 2, 0, 0}, "2 columns"},
        {{0, 1, 0, 0, 0}, "1 row"},
        {{6, 0, 0, 2, 3}, "3 x 2"},
        {{1, 0, 0, 1, 1}, "1 cell"},
        {{2, 0, 0, 0, 0}, "2 cells"},
    };
    for (auto const& [size, text] : selections)
        EXPECT_EQ(StatusBar::selectionText(size), QString("Selected: ") + text);
    EXPECT_EQ(StatusBar::filtersText({3, 1}, {2, 0}), "Filters: R1, R3, C0, C2");
    EXPECT_EQ(StatusBar::filtersText({}, {}), "Filters: none");
}
