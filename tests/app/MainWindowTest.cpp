#include "app/MainWindow.h"

#include "app/LoadProgressOverlay.h"
#include "app/PaneView.h"
#include "app/StatusBar.h"
#include "app/TabBar.h"
#include "commands/HandlerName.h"
#include "model/undo/SetModelDataCommand.h"
#include "tests/support/MsgBoxAnswers.h"

#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class MainWindowTest : public testing::Test {
protected:
    QString write(QString const& name, QByteArray const& bytes) {
        QString const path = directory.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    static QByteArray read(QString const& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    QString cell(int row, int col) const {
        TableModel const& model = *window.getActiveTable()->tableModel();
        return model.data(model.index(row, col)).toString();
    }

    QString label(StatusBar::Label which) const { return window.getStatusBar()->text(which); }

    QTemporaryDir directory;
    MainWindow window;
};

} // namespace

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
    EXPECT_TRUE(window.openFiles({first, second, directory.filePath("./a.csv")}));
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    EXPECT_EQ(window.getActiveTable()->getFilepath(), first);
    window.openFile(second);
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    EXPECT_EQ(label(StatusBar::Label::Delimiter), "Delimiter: tab");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(window.windowTitle(), "a.csv - Gridwright");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(window.windowTitle(), "untitled - Gridwright");
}

TEST_F(MainWindowTest, WhatIsNoTableIsToldAndTheRestStillOpens) {
    QString const fifo = directory.filePath("fifo.csv");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QString const good = write("good.csv", "a,b\n");
    MsgBoxAnswers box;
    box.next("OK");
    EXPECT_TRUE(window.openFiles({fifo, good}));
    EXPECT_EQ(box.texts().value(0),
              QString("This can't be opened as a table:\n%1\n\nIt is not a regular file.").arg(fifo));
    EXPECT_EQ(window.windowTitle(), "good.csv - Gridwright");
}

TEST_F(MainWindowTest, SavingWritesTheDialectBackAndAFailureIsToldAndLosesNothing) {
    QString const path = write("a.csv", "a,\"b\"\"c\"\n,\n");
    window.openFile(path);
    window.commandSaveFile();
    EXPECT_EQ(read(path), "a,\"b\"\"c\"\n,\n");

    QFile::remove(path);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    MsgBoxAnswers box;
    box.next("OK");
    EXPECT_FALSE(window.saveFile(window.getActiveTable()));
    EXPECT_EQ(box.texts().value(0),
              QString("File failed to save.\n\nFile: %1\nReason: The path names something that is not a "
                      "regular file.")
                  .arg(path));
    EXPECT_EQ(cell(0, 1), "b\"c");
    EXPECT_EQ(window.getActiveTable()->getFilepath(), path);
}

TEST_F(MainWindowTest, ClosingAChangedTableAsksAndEachAnswerKeepsItsWord) {
    QString const path = write("a.csv", "1,2\n");
    auto const change = [&] {
        window.openFile(path);
        TableModel& model = *window.getActiveTable()->tableModel();
        RangeVector cells{Range(0, 0, RangeIndexType::Model)};
        cells[0].value = "changed";
        window.getActiveTable()->pushUndoCommand(new SetModelDataCommand(&model, cells, true));
    };
    MsgBoxAnswers box;
    change();
    box.next("Cancel");
    EXPECT_FALSE(window.close());
    EXPECT_EQ(box.texts().value(0), "Do you want to save changes to a.csv?");
    EXPECT_EQ(window.windowTitle(), "a.csv - Gridwright");
    box.next("Don't Save");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(read(path), "1,2\n");
    change();
    box.next("Save");
    EXPECT_TRUE(window.closeFile(window.getActiveTable()));
    EXPECT_EQ(read(path), "changed,2\n");
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
    MsgBoxAnswers box;
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
    RangeVector cells{Range(0, 1, RangeIndexType::Model)};
    cells[0].value = "7";
    cells[0].hasMainCell = true;
    table.pushUndoCommand(new SetModelDataCommand(table.tableModel(), cells, true));
    EXPECT_EQ(sum(), "Sum: 7");
    window.commandUndo();
    EXPECT_EQ(sum(), "Sum: 2");
}

TEST_F(MainWindowTest, CommandsFollowTheContext) {
    window.openFile(write("a.csv", "1,2\n3,4\n"));
    window.commandSelectDown();
    EXPECT_EQ(window.getActiveTable()->tableModel()->numSelectedCells(), 2);
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 1 x 2");
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 4      Mean: 2");
    window.commandSelectEntireRows();
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 2 rows");
    EXPECT_EQ(label(StatusBar::Label::Stats), "Sum: 10      Mean: 2.5");
    window.commandGoToTop();
    EXPECT_EQ(label(StatusBar::Label::Selection), "Selected: 1 cell");
    window.commandRemoveRows();
    EXPECT_EQ(label(StatusBar::Label::TableSize), "1 row x 2 columns");
    window.commandUndo();
    EXPECT_EQ(cell(1, 1), "4");
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
}
