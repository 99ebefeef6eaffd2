// Commands on cells, rows and columns, carried out by their names in a window.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/StatusBar.h"
#include "model/undo/SetModelDataCommand.h"
#include "tests/model/SelectionText.h"
#include "tests/support/MsgBoxAnswers.h"
#include "view/TableView.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class DataCommands : public testing::Test {
protected:
    void open(QByteArray const& content, QString const& name = "table.csv") {
        QFile file(directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        ASSERT_TRUE(window.openFile(file.fileName()));
    }

    TableModel& model() { return *window.getActiveTable()->tableModel(); }

    void select(char const* text) {
        RangeVector const ranges = rangesFrom(text);
        model().setSelection(modelCell(ranges.front().row, ranges.front().col), ranges);
    }

    /// The visible data, cells by blanks and rows by bars, "-" for an empty cell.
    std::string shown() {
        QStringList rows;
        for (int row = 0; row < model().rowCountModel(); ++row) {
            QStringList cells;
            for (int col = 0; col < model().columnCountModel(); ++col) {
                QString const text = model().data(model().index(row, col)).toString();
                cells << (text.isEmpty() ? "-" : text);
            }
            rows << cells.join(' ');
        }
        return rows.join('|').toStdString();
    }

    QTemporaryDir directory;
    MainWindow window;
};

TEST_F(DataCommands, AReadOnlyTableIsSortedAndHiddenAndTransposedButKeepsItsCellsAndIsNeverUnsaved) {
    open("h i\n3 1\n1 2\n2 9\n");
    TableView& table = *window.getActiveTable();
    table.setReadOnly(true);
    select("K0,0");
    for (char const* const name :
         {"Sort Selected Cells Horizontally - Descending", "Sort Selected Cells Vertically - Ascending"}) {
        window.runCommand(name);
        EXPECT_EQ(table.undoStack()->count(), 0) << name;
        EXPECT_TRUE(window.getStatusBar()->currentMessage().contains("read-only")) << name;
        window.getStatusBar()->clearMessage();
    }
    EXPECT_EQ(shown(), "h i|3 1|1 2|2 9");
    QSignalSpy const told(&table, &TableView::undoStackCleanChangedSignal);
    select("C1,0");
    window.runCommand("Sort Selected Column - Ascending");
    EXPECT_EQ(shown(), "h i|1 2|2 9|3 1");
    window.runCommand("Undo");
    EXPECT_EQ(shown(), "h i|3 1|1 2|2 9");
    window.runCommand("Redo");
    window.runCommand("Hide Selected Row(s)");
    MsgBoxAnswers box;
    box.next("OK");
    model().setLoadLimits({100, 3});
    window.runCommand("Transpose Table");
    EXPECT_TRUE(box.texts().value(0).endsWith("A table can show no more than 3 columns."));
    EXPECT_EQ(table.undoStack()->count(), 2);
    EXPECT_EQ(model().rowCountRaw(), 4) << "hidden rows may be shown again, so they count";
    model().setLoadLimits({100, 4});
    window.runCommand("Transpose Table");
    EXPECT_EQ(table.undoStack()->count(), 3);
    for (QList<QVariant> const& clean : told)
        EXPECT_TRUE(clean.first().toBool());
    EXPECT_FALSE(table.hasUnsavedChanges());
    window.runCommand("Save All Files");
    box.next("OK");
    EXPECT_FALSE(window.saveFile(&table));
    EXPECT_TRUE(box.texts().value(1).contains("read-only"));
    EXPECT_TRUE(window.closeFile(&table)) << "nothing is asked";
}

TEST_F(DataCommands, WhatWasEditedBeforeATableBecameReadOnlyStaysAndIsStillUnsaved) {
    window.commandNewFile();
    TableView& table = *window.getActiveTable();
    TableModel& edited = *table.tableModel();
    RangeVector cells{modelCell(0, 0)};
    cells.front().value = QString("kept");
    table.pushUndoCommand(new SetModelDataCommand(&edited, cells, true));
    table.setReadOnly(true);
    EXPECT_TRUE(table.hasUnsavedChanges());
    window.runCommand("Undo");
    EXPECT_EQ(shown(), "kept");
    EXPECT_FALSE(edited.setDataRaw(edited.index(0, 0), "lost"));
    EXPECT_FALSE(edited.insertRows(0, 1) && edited.rowCountRaw() > 1);
    EXPECT_EQ(shown(), "kept");
    table.setReadOnly(false);
    window.runCommand("Undo");
    EXPECT_EQ(edited.rowCountRaw(), 0);
}

TEST_F(DataCommands, ALineBehindTheDataSortsNothingAndChangesNothing) {
    open("h i\n3 1\n1 2\n");
    TableView& table = *window.getActiveTable();
    for (auto const& [name, selection] :
         {std::pair("Sort Selected Column - Descending", "C1,2"), std::pair("Sort Selected Row - Ascending", "C3,0")}) {
        select(selection);
        window.runCommand(name);
        EXPECT_EQ(table.undoStack()->count(), 0) << name;
        EXPECT_EQ(shown(), "h i|3 1|1 2");
        EXPECT_EQ(model().getRowSortData().index, -1);
        EXPECT_EQ(model().getColSortData().index, -1);
    }
}

TEST_F(DataCommands, EachDoesWhatItsNameSaysAndUndoTakesItBack) {
    struct {
        char const* name;
        char const* selection;
        char const* expected;
    } const cases[] = {
        {"Upper Case", "K0,0", "H i j|A x ú|- - -|A x ú|B - -"},
        {"Title Case", "C1,0 C1,2", "h i j|A x Ú|- - -|a x ú|b - -"},
        {"Copy Main Cell Contents to All Selected Cells", "C0,1 C2,1 C5,0", "h i j|a x ú|- i -|a x ú|b - -|i - -"},
        {"Duplicate Selected Cell Contents Down", "C1,1", "h i j|a x ú|- x -|a x ú|b - -"},
        {"Transpose Selected Cells", "C0,0 C0,1 C1,0 C1,1", "h a j|i x ú|- - -|a x ú|b - -"},
        {"Insert Cells, Move Rest of Row Right", "C1,1", "h i j -|a - x ú|- - - -|a x ú -|b - - -"},
        {"Insert Cells, Move Rest of Column Down", "C1,0", "h i j|- x ú|a - -|- x ú|a - -|b - -"},
        {"Remove Selected Cells, Move Rest of Row Left", "C1,0", "h i j|x ú -|- - -|a x ú|b - -"},
        {"Remove Selected Cells, Move Rest of Column Up", "C1,0", "h i j|- x ú|a - -|b x ú|- - -"},
        {"Remove Selected Cells and the Rest of Their Rows", "C1,1", "h i j|a - -|- - -|a x ú|b - -"},
        {"Remove Selected Cells and the Rest of Their Columns", "C1,1", "h i j|a - ú|- - -|a - ú|b - -"},
        {"Remove Duplicate Row(s)", "C0,0", "h i j|a x ú|- - -|b - -"},
        {"Remove Duplicate Rows (Based on Selected Columns Only)", "C0,1", "h i j|a x ú|- - -"},
        {"Remove Empty Row(s)", "C0,0", "h i j|a x ú|a x ú|b - -"},
        {"Remove Empty Rows (Based on Selected Columns Only)", "K1,0", "h i j|a x ú|a x ú"},
        {"Remove Empty Columns (Based on Selected Rows Only)", "C4,0", "h|a|-|a|b"},
        {"Hide Selected Row(s)", "C1,1 R2,0", "h i j|a x ú|b - -"},
        {"Hide All But Selected Column(s)", "K1,0", "i|x|-|x|-"},
        {"Hide Empty Row(s)", "C0,0", "h i j|a x ú|a x ú|b - -"},
    };
    QByteArray const content = "h,i,j\na,x,\xc3\xba\n,,\na,x,\xc3\xba\nb,,\n";
    std::string const before = "h i j|a x ú|- - -|a x ú|b - -";
    open(content);
    for (auto const& test : cases) {
        select(test.selection);
        ASSERT_EQ(shown(), before) << "ahead of " << test.name;
        window.runCommand(test.name);
        EXPECT_EQ(shown(), test.expected) << test.name;
        window.runCommand("Undo");
    }
    EXPECT_EQ(shown(), before);
}

TEST_F(DataCommands, AReadOnlyTableHidesButNeverChanges) {
    open("h,i\na,x\na,x\n");
    window.getActiveTable()->setReadOnly(true);
    window.setActiveTable(window.getActiveTable());
    for (char const* const name : {"Upper Case", "Remove Duplicate Row(s)", "Insert Cells, Move Rest of Row Right"})
        window.runCommand(name);
    EXPECT_EQ(shown(), "h i|a x|a x");
    select("R1,0");
    window.runCommand("Hide Selected Row(s)");
    EXPECT_EQ(shown(), "h i|a x");
}

TEST_F(DataCommands, DuplicatesAreSelectedWhereTheyWouldBeRemoved) {
    open("h,i\na,x\nb,x\na,x\na,x\n");
    window.runCommand("Select Duplicate Row(s)");
    EXPECT_EQ(textOf(model().getSelection()), "R3,0* R4,0");
    select("C1,0");
    window.runCommand("Select Duplicate Row(s)");
    window.runCommand("Remove Row(s)");
    EXPECT_EQ(shown(), "h i|a x|b x");
    window.runCommand("Select Duplicate Row(s)");
    EXPECT_TRUE(window.getActiveTable()->undoStack()->count() == 1);
}

TEST_F(DataCommands, NothingToDoLeavesTheTableUnchanged) {
    open("H,I\nA,X\n");
    for (char const* const name :
         {"Upper Case", "Trim Selected Cell(s)", "Remove Duplicate Row(s)", "Remove Empty Column(s)",
          "Remove Extraneous Rows and Columns", "Remove All Filtered Out and Hidden Data", "Show All Hidden Row(s)",
          "Remove Empty Rows (Based on Selected Columns Only)", "Insert Cells, Move Rest of Row Right"}) {
        select(name == std::string("Upper Case") ? "T0,0" : "C7,9");
        window.runCommand(name);
        EXPECT_TRUE(window.getActiveTable()->undoStack()->isClean()) << name;
    }
}

TEST_F(DataCommands, HiddenDataIsShownAgainOrRemoved) {
    open("h,i\na,x\n,\nb,y\n");
    select("C1,1");
    window.runCommand("Hide Selected Row(s)");
    window.runCommand("Hide Selected Column(s)");
    EXPECT_EQ(shown(), "h|-|b");
    select("C0,0 C1,0");
    window.runCommand("Show Hidden Row(s) in Selection");
    window.runCommand("Show All Hidden Column(s)");
    EXPECT_EQ(shown(), "h i|a x|- -|b y");
    window.runCommand("Hide Empty Row(s)");
    window.runCommand("Remove All Filtered Out and Hidden Data");
    window.runCommand("Show All Hidden Row(s)");
    EXPECT_EQ(shown(), "h i|a x|b y");
}

TEST_F(DataCommands, UuidsFillTheSelectedCellsEachWithItsOwn) {
    select("C0,0 C1,0");
    window.runCommand("Fill Selected Cells with UUID/GUID");
    QStringList const made = QString::fromStdString(shown()).split('|');
    ASSERT_EQ(made.size(), 2);
    EXPECT_NE(made[0], made[1]);
    EXPECT_TRUE(QRegularExpression("^[0-9a-f-]{36}$").match(made[0]).hasMatch());
}

TEST_F(DataCommands, TabsAreReachedByNumberAndClosedButForTheCurrentOne) {
    open("1\n", "a.csv");
    open("2\n", "b.csv");
    open("3\n", "c.csv");
    window.runCommand("Switch to Tab 2");
    EXPECT_EQ(shown(), "2");
    window.runCommand("Switch to Tab 9");
    EXPECT_EQ(shown(), "2");
    QGuiApplication::clipboard()->setText("before");
    window.runCommand("Copy File Name to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "b.csv");
    window.runCommand("Copy Folder Path to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), directory.path());
    window.runCommand("Copy File Path to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), directory.filePath("b.csv"));

    window.runCommand("Close All Files Except Current");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    EXPECT_EQ(shown(), "2");
}

TEST_F(DataCommands, ClosingTheOthersStopsWhereTheUserCancels) {
    open("1\n", "a.csv");
    select("C0,0");
    window.runCommand("Insert Row(s) Before");
    open("2\n", "b.csv");
    MsgBoxAnswers answers;
    answers.next("Cancel");
    window.runCommand("Close All Files Except Current");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 2U);
    EXPECT_EQ(shown(), "-|1");
}

TEST_F(DataCommands, ScrollingToAnEdgeLeavesTheSelectionAlone) {
    open("1\n");
    window.resize(400, 300);
    window.show();
    select("C3,3");
    TableView const& table = *window.getActiveTable();
    window.runCommand("Scroll to Bottom");
    window.runCommand("Scroll to Far Right");
    EXPECT_EQ(table.verticalScrollBar()->value(), table.verticalScrollBar()->maximum());
    EXPECT_EQ(table.horizontalScrollBar()->value(), table.horizontalScrollBar()->maximum());
    EXPECT_GT(table.verticalScrollBar()->maximum(), 0);
    window.runCommand("Scroll to Top");
    window.runCommand("Scroll to Far Left");
    EXPECT_EQ(table.verticalScrollBar()->value() + table.horizontalScrollBar()->value(), 0);
    EXPECT_EQ(textOf(model().getSelection()), "C3,3*");
}

} // namespace
