#include "app/LoadProgressOverlay.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PromptChain.h"
#include "commands/HandlerName.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/HeldReads.h"
#include "view/EditorPane.h"

#include <QAction>
#include <QHeaderView>
#include <QSignalSpy>

#include <random>

namespace {

constexpr int patience = 20000; ///< milliseconds

constexpr int never = 3600000;

struct WatchWaits {
    explicit WatchWaits(int quiet) { MainWindow::setWatchTimings({quiet, 80, 30}); }
};

class Loading : private WatchWaits, public WindowFixture {
protected:
    explicit Loading(int watchWait = never) : WatchWaits(watchWait) {
        window.resize(800, 600);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QString tableSize() const { return label(StatusBar::Label::TableSize); }
    /// All texts of the data.
    QStringList contents() const {
        QStringList texts;
        for (int row = 0; row < model().rowCountRaw(); ++row)
            for (int col = 0; col < model().columnCountRaw(); ++col)
                texts << model().dataRaw(model().index(row, col)).toString();
        return texts;
    }
    /// Begins a load of the open file that waits in its middle.
    void reloadAndHold() {
        reads.hold();
        window.runCommand("Reload File");
        ASSERT_TRUE(table()->isLoading());
        reads.waitUntilHeld();
    }
    void endLoad() {
        QSignalSpy loaded(window.getPaneView(), &PaneView::tableLoadedSignal);
        reads.release();
        ASSERT_TRUE(loaded.wait(patience));
    }
    bool isLive(char const* command) { return window.getCommands().find(command)->action->isEnabled(); }

    HeldReads reads;
};

class LoadingAndWatching : public Loading {
protected:
    LoadingAndWatching() : Loading(20) {}
};

/// What a user, or a fault of the program, might do to a table at any moment.
class Monkey {
public:
    Monkey(MainWindow& window, unsigned seed) : window(window), random(seed) {}

    void act() {
        switch (below(6)) {
        case 0: trigger(); break;
        case 1: callHandler(); break;
        case 2: pressKey(); break;
        case 3: pressMouse(); break;
        case 4: answerPrompt(); break;
        default: pressLabel(); break;
        }
    }

    /// Presses any button of a message box.
    QAbstractButton* pressAny(MsgBox const& box) {
        auto const buttons = box.buttons();
        return buttons.at(int(below(unsigned(buttons.size()))));
    }

private:
    unsigned below(unsigned count) { return random() % count; }

    /// Leaves out what opens files, windows, programs or dialogs of the desktop, and what ends the table or the window.
    Command const& anyCommand() {
        static QString const notHere =
            "New File|New Window|Open File|Save File As|Save Visible Data As|Close File|Close All Files|Exit|"
            "Close All Files Except Current|Edit Settings|Edit Keyboard Shortcuts|Edit File Extension Options|"
            "Open Preference File Folder|Toggle Save With Trailing Delimiters";
        auto const& all = window.getCommands().sorted();
        for (;;) {
            Command const& command = all[below(unsigned(all.size()))];
            if (!notHere.split('|').contains(command.name))
                return command;
        }
    }

    void trigger() { anyCommand().action->trigger(); }

    /// As code that has not asked whether the command is live.
    void callHandler() {
        QString const handler = commandHandlerName(anyCommand().name);
        bool const reloads = handler.contains("Reload") || handler.contains("ReadOnly"); // would be a load of its own
        if (!reloads)
            QMetaObject::invokeMethod(&window, handler.toLatin1().constData());
    }

    void pressKey() {
        using namespace Qt;
        static Key const keys[] = {Key_A,     Key_F2,    Key_Delete, Key_Backspace, Key_Return,   Key_Tab,   Key_Down,
                                   Key_Right, Key_Space, Key_C,      Key_Insert,    Key_Equal,    Key_Z,     Key_S,
                                   Key_R,     Key_Enter, Key_Minus,  Key_X,         Key_PageDown, Key_Escape};
        static KeyboardModifiers const modifiers[] = {NoModifier, NoModifier, ControlModifier, ShiftModifier,
                                                      AltModifier};
        TableView* const table = window.getActiveTable();
        std::vector<QWidget*> const targets = {
            table,   table->viewport(),   table->parentWidget(), window.getPaneView()->getEditorPane(),
            &window, window.focusWidget()};
        if (QWidget* const target = targets[below(unsigned(targets.size()))]) {
            // A key with ctrl or alt is a shortcut where commands are live; those are triggered by name.
            QTest::keyClick(target, keys[below(unsigned(std::size(keys)))], modifiers[below(5)]);
        }
    }

    void pressMouse() {
        TableView* const table = window.getActiveTable();
        std::vector<QWidget*> const targets = {table->viewport(), table->horizontalHeader()->viewport(),
                                               table->verticalHeader()->viewport()};
        QWidget* const target = targets[below(unsigned(targets.size()))];
        QPoint const place(int(below(200)), int(below(100)));
        if (below(2) == 0)
            QTest::mouseClick(target, Qt::LeftButton, {}, place);
        else
            QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    }

    void answerPrompt() {
        Launcher* const launcher = window.getPaneView()->getLauncher();
        if (launcher == nullptr)
            return;
        static char const* const answers[] = {"1", "2", "c2, 3", "a", "", "Tab", "RFC 4180", "UTF-16"};
        launcher->setEditorText(answers[below(unsigned(std::size(answers)))]);
        QTest::keyClick(launcher->getEditor(), below(4) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    void pressLabel() { emit window.getStatusBar()->labelPressedSignal(static_cast<StatusBar::Label>(below(6))); }

    MainWindow& window;
    std::mt19937 random;
};

QByteArray someTable() {
    QByteArray bytes;
    for (int row = 0; row < 60; ++row)
        bytes += "name " + QByteArray::number(row) + ",\"x, y\"," + QByteArray::number(row * 7 % 13) + ",\n";
    return bytes;
}

} // namespace

TEST_F(Loading, NothingThatHappensWhileATableLoadsChangesIt) {
    QByteArray const bytes = someTable();
    QString const path = open(bytes);
    QStringList const plain = contents();
    for (unsigned const seed : {1U, 2U, 3U, 4U}) {
        Monkey monkey(window, seed);
        MsgBox::setAnswer([&](MsgBox const& box) { return monkey.pressAny(box); });
        window.runCommand("Go to Top");
        reloadAndHold();
        for (int i = 0; i < 400; ++i) {
            monkey.act();
            if (i % 16 == 0)
                QCoreApplication::processEvents();
        }
        window.closeLauncher();
        EXPECT_TRUE(table()->isLoading()) << seed;
        EXPECT_EQ(read(path), bytes) << seed;
        endLoad();
        MsgBox::setAnswer({});
        ASSERT_EQ(contents(), plain) << seed;
        EXPECT_EQ(table()->undoStack()->count(), 0) << seed;
        EXPECT_FALSE(model().hasHiddenLines()) << seed;
        table()->undo();
        table()->redo();
        EXPECT_EQ(contents(), plain) << seed;
        EXPECT_TRUE(window.saveFile(table()));
        EXPECT_EQ(read(path), bytes) << seed;
        EXPECT_EQ(window.getPaneView()->getTables().size(), 1U) << seed;
    }
}

TEST_F(Loading, CommandsThatNeedATableAreDeadUntilItsEndWhateverAsksForThem) {
    open("a,b\nc,d\n");
    window.runCommand("Select Entire Row(s)");
    char const* const commands[] = {
        "Save File",           "Undo",        "Transpose Table",          "Edit Selected Cell",
        "Clear Cell Contents", "Reload File", "Transpose Selected Cells", "Stop Editing"};
    reloadAndHold();
    auto const expectDead = [&] {
        for (char const* const command : commands)
            EXPECT_FALSE(isLive(command)) << command;
        EXPECT_TRUE(isLive("Open File"));
    };
    expectDead();
    EXPECT_EQ(tableSize(), "Loading ...");
    window.runCommand("Set Text Size"); // a question that needs no table
    expectDead();
    prompts.leave("Text Size:");
    expectDead();
    emit window.getPaneView()->addContextSignal(Context::Navigating | Context::MultiCellSelection);
    expectDead();
    emit window.getPaneView()->removeContextSignal(Context::CellEditing);
    expectDead();
    endLoad();
    EXPECT_TRUE(isLive("Save File") && isLive("Edit Selected Cell") && isLive("Reload File"));
    EXPECT_TRUE(isLive("Transpose Selected Cells"));
    EXPECT_FALSE(isLive("Stop Editing"));
    EXPECT_EQ(tableSize(), "2 rows x 2 columns");
}

TEST_F(Loading, AReloadThatCannotBeginKeepsTableUndoAndDialectAndSaysWhy) {
    QString const path = open("a;b\nc;d\ne;f\n");
    change("mine");
    table()->tableModel()->setDelimiter(";", "|");
    table()->horizontalHeader()->resizeSection(1, 123);
    table()->verticalHeader()->resizeSection(0, 45);
    select("C2,0");
    window.runCommand("Hide Selected Row(s)");
    std::string const selected = selection();
    int const undoable = table()->undoStack()->count();
    auto const sizeByHand = [&](Axis axis, int line) {
        LineSizeStore const& sizes = model().getTableData().lineSizes(axis);
        return sizes.isByHand(line) ? sizes.size(line).value_or(0) : 0;
    };
    QFile::remove(path);
    ASSERT_TRUE(QFile::link("/proc/self/mem", path)); // a regular file whose reading fails
    QString const told =
        QString("This file can't be read again:\n%1\n\nInput/output error.\n\nThe table keeps what it had.").arg(path);
    int times = 0;
    auto const expectKept = [&] {
        ++times;
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().count(told) == times; })); // it may wait for its turn
        EXPECT_FALSE(table()->isLoading() || table()->isHidden() || table()->isReadOnly());
        EXPECT_EQ(cell(0, 0) + cell(1, 1), "mined");
        EXPECT_EQ(model().getSaveDelimiter(), "|");
        EXPECT_EQ(table()->undoStack()->count(), undoable);
        EXPECT_TRUE(isLive("Undo") && isLive("Save File"));
        EXPECT_EQ(tableSize(), "3 rows x 2 columns (2 rows x 2 columns)");
        EXPECT_EQ(selection(), selected);
        EXPECT_EQ(sizeByHand(Axis::Columns, 1), 123);
        EXPECT_EQ(sizeByHand(Axis::Rows, 0), 45);
    };
    box.next("Discard");
    box.next("OK");
    window.runCommand("Reload File");
    expectKept();
    box.next("Discard");
    box.next("OK");
    window.runCommand("Toggle Read-Only");
    expectKept();
    box.next("OK");
    EXPECT_FALSE(table()->reloadFile(",", EncodingType::Utf8, ParsingStandard::Rfc4180));
    expectKept();
}

TEST_F(LoadingAndWatching, AnUnreadableFileInThePlaceOfTheOpenOneIsToldOnceAndTheNextReloadWorks) {
    QString const path = open("old\n");
    box.next("OK");
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkdir(path)); // what even root cannot read
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.texts().size() == 1; }, patience));
    EXPECT_TRUE(box.texts().value(0).contains("It is a folder."));
    EXPECT_EQ(cell(0, 0), "old");
    EXPECT_TRUE(isLive("Save File") && isLive("Edit Selected Cell"));
    QTest::qWait(200); // long enough for it to be told twice
    ASSERT_TRUE(QDir().rmdir(path));
    write("a.csv", "new and longer\n");
    window.runCommand("Reload File");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "new and longer"; }, patience));
}

TEST_F(Loading, AFileThatCannotBeReadOpensNoTab) {
    QString const path = directory.filePath("a.csv");
    ASSERT_TRUE(QFile::link("/proc/self/mem", path));
    box.next("OK");
    EXPECT_FALSE(window.openFile(path));
    EXPECT_EQ(box.texts().value(0), QString("This can't be opened as a table:\n%1\n\nInput/output error.").arg(path));
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
}

TEST_F(Loading, APartIsToldAndMarkedAndALoadCanBeClosed) {
    QString const path = open(QByteArray("some,cells,of,a,row\n").repeated(50000));
    box.next("OK");
    reads.failAfter(1);
    window.runCommand("Reload File");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box.texts().isEmpty(); }, patience));
    EXPECT_EQ(box.texts().value(0), QString("This file became shorter, or could not be read on, while it was being "
                                            "opened:\n%1\n\nThe table holds what could be read.")
                                        .arg(path));
    EXPECT_EQ(model().getLoadResult().end, LoadEnd::Part);
    EXPECT_TRUE(model().rowCountRaw() > 0 && model().rowCountRaw() < 50000);
    reads.failAfter(-1);

    reloadAndHold();
    QTimer::singleShot(0, &window, [this] { reads.release(); });
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.closeFile(table()));
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
}

TEST_F(Loading, ATableThatGoesOnBeyondTheGridIsReadOnlyAndItsFileStaysWhole) {
    QString const path = open("a,b\nc,d\ne,f\n");
    model().setLoadLimits({2, 100});
    box.next("OK");
    window.runCommand("Reload File");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box.texts().isEmpty(); }, patience));
    EXPECT_EQ(box.texts().value(0),
              QString("This file has more than a table can show:\n%1\n\nIt has more than 2 rows. The table holds it up "
                      "to there and is read-only, so that the rest of the file is not lost.")
                  .arg(path));
    EXPECT_EQ(tableSize(), "2 rows x 2 columns");
    EXPECT_EQ(model().rowCount(), 2);
    EXPECT_EQ(window.getStatusBar()->text(StatusBar::Label::Mode), "Read-Only");
    EXPECT_FALSE(isLive("Save File"));
    table()->startEditing(true);
    EXPECT_FALSE(table()->isEditing());
    box.next("OK");
    EXPECT_FALSE(window.saveFileUnder(table(), path, false));
    EXPECT_TRUE(box.texts().last().contains("holds only the beginning of the file"));
    EXPECT_EQ(read(path), "a,b\nc,d\ne,f\n");
    EXPECT_TRUE(window.saveFileUnder(table(), directory.filePath("part.csv"), false));
    EXPECT_EQ(read(directory.filePath("part.csv")), "a,b\nc,d\n");
}

TEST_F(LoadingAndWatching, OnlyTheUserMovesTheFocus) {
    QString const path = open("a,b\nc,d\n");
    EXPECT_EQ(QApplication::focusWidget(), table());

    // The table has its keys back after a load; those typed meanwhile go nowhere.
    reloadAndHold();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
    endLoad();
    EXPECT_EQ(QApplication::focusWidget(), table());
    EXPECT_EQ(read(path), "a,b\nc,d\n");
    EXPECT_EQ(contents(), (QStringList{"a", "b", "c", "d"}));

    // Whoever types in the launcher goes on typing there, when a load ends and when a file changes.
    reloadAndHold();
    window.runCommand("Set Text Size");
    QWidget* const editor = window.getPaneView()->getLauncher()->getEditor();
    EXPECT_EQ(QApplication::focusWidget(), editor);
    endLoad();
    EXPECT_EQ(QApplication::focusWidget(), editor);
    write("a.csv", "new,b\nc,d\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0, 0) == "new"; }, patience));
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), editor);
    prompts.leave("Text Size:");
    EXPECT_EQ(QApplication::focusWidget(), table());

    // And so with an edit in a cell of one table while another one is read again or goes.
    QString const other = write("b.csv", "1\n");
    window.openFile(other);
    window.commandSwitchToTabOnTheRight();
    ASSERT_EQ(table()->getFilepath(), path);
    table()->startEditing(false);
    QWidget* const cellEditor = QApplication::focusWidget();
    ASSERT_TRUE(table()->isEditing());
    write("b.csv", "22\n");
    TableModel const& second = *window.getPaneView()->getTableView(other)->tableModel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return second.data(second.index(0, 0)) == "22"; }, patience));
    QFile::remove(other);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.getPaneView()->getTables().size() == 1; }, patience));
    EXPECT_EQ(QApplication::focusWidget(), cellEditor);
    EXPECT_TRUE(table()->isEditing());
}

TEST_F(Loading, AfterALoadEveryPartOfTheTableIsPaintedAgain) {
    open("a\n");
    reloadAndHold();
    endLoad();
    for (QWidget const* const part : table()->findChildren<QWidget*>())
        EXPECT_TRUE(part->updatesEnabled()) << part->metaObject()->className();
}

TEST_F(Loading, EachLoadBeginsItsProgressAtZero) {
    open("a\n");
    auto* const overlay = window.getPaneView()->findChild<LoadProgressOverlay*>();
    overlay->setProgress(9, 10);
    EXPECT_EQ(overlay->text(), "90%");
    reloadAndHold();
    EXPECT_EQ(overlay->text(), "0%");
    endLoad();
}
