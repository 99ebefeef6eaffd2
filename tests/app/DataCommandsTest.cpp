// Commands on cells, rows and columns, carried out by their names in a window.

#include "app/PaneView.h"
#include "tests/app/TellingFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>

#include <tuple>

namespace {

using DataCommands = WindowFixture;

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
    window.setActiveTable(&table);
    for (char const* const name : {"Upper Case", "Remove Duplicate Row(s)", "Insert Cells, Move Rest of Row Right",
                                   "Move Row(s) Down", "Duplicate Column(s)", "Clear Cell Contents"})
        window.runCommand(name);
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
    cells.front().setValue(QString("kept"));
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

struct Case {
    char const* name;
    char const* selection;
    char const* expected;           ///< null where nothing changes
    char const* selected = nullptr; ///< null where the selection stays
    char const* answer = nullptr;   ///< where the command asks
};

struct Standing {
    std::vector<int> hiddenRows = {}, hiddenCols = {};
    int headerRows = 1, headerCols = 0;
};

/// A table, how it stands, and what commands make of it. Hidden lines are in brackets.
struct Table {
    QByteArray content;
    Standing standing;
    char const* before;
    std::vector<Case> cases;
};

Table const tables[] = {
    {"h,i,j\na,x,\xc3\xba\n,,\na,x,\xc3\xba\nb,,\n",
     {{}, {}, 1, 0},
     "h i j|a x ú|- - -|a x ú|b - -",
     {
         {"Upper Case", "K0,0", "H i j|A x ú|- - -|A x ú|B - -"},
         {"Title Case", "C1,0 C1,2", "h i j|A x Ú|- - -|a x ú|b - -"},
         {"Copy Main Cell Contents to All Selected Cells", "C0,1 C2,1 C5,0", "h i j|a x ú|- i -|a x ú|b - -|i - -"},
         {"Duplicate Selected Cell Contents Down", "C1,1", "h i j|a x ú|- x -|a x ú|b - -", "C2,1*"},
         {"Duplicate Selected Cell Contents Left", "K2,0", "h j j|a ú ú|- - -|a ú ú|b - -", "K1,0*"},
         {"Duplicate Selected Cell Contents Up", "C1,1", "h x j|a x ú|- - -|a x ú|b - -", "C0,1*"},
         {"Transpose Selected Cells", "C0,0 C0,1 C1,0 C1,1", "h a j|i x ú|- - -|a x ú|b - -"},
         {"Transpose Selected Cells", "R1,0", "h i j|a - -|x - -|ú x ú|b - -", "K0,1*"},
         {"Transpose Selected Cells", "K1,0", "h i x - x|a - ú - -|- - - - -|a - ú - -|b - - - -", "R0,1*"},
         {"Transpose Table", "R1,0 C0,2", "h a - a b|i x - x -|j ú - ú -", "K1,0* C2,0"},
         {"Insert Cells, Move Rest of Row Right", "C1,1", "h i j -|a - x ú|- - - -|a x ú -|b - - -"},
         {"Insert Cells, Move Rest of Column Down", "C1,0", "h i j|- x ú|a - -|- x ú|a - -|b - -"},
         {"Remove Selected Cells, Move Rest of Row Left", "C1,0", "h i j|x ú -|- - -|a x ú|b - -"},
         {"Remove Selected Cells, Move Rest of Column Up", "C1,0", "h i j|- x ú|a - -|b x ú|- - -"},
         {"Remove Selected Cells, Move Rest of Column Up", "C1,0 C1,1 C3,0 C3,1", "h i j|- - ú|b - -|- - ú|- - -"},
         {"Remove Selected Cells and the Rest of Their Rows", "C1,1", "h i j|a - -|- - -|a x ú|b - -"},
         {"Remove Selected Cells and the Rest of Their Columns", "C1,1", "h i j|a - ú|- - -|a - ú|b - -"},
         {"Remove Duplicate Row(s)", "C0,0", "h i j|a x ú|- - -|b - -"},
         {"Remove Duplicate Rows (Based on Selected Columns Only)", "C0,1", "h i j|a x ú|- - -"},
         {"Remove Empty Row(s)", "C0,0", "h i j|a x ú|a x ú|b - -"},
         {"Remove Empty Rows (Based on Selected Columns Only)", "K1,0", "h i j|a x ú|a x ú"},
         {"Remove Empty Columns (Based on Selected Rows Only)", "C4,0", "h|a|-|a|b"},
         {"Hide Selected Row(s)", "C1,1 R2,0", "h i j|(a x ú)|(- - -)|a x ú|b - -", "C0,1*"},
         {"Hide Selected Column(s)", "C0,1", "h (i) j|a (x) ú|- (-) -|a (x) ú|b (-) -", "C0,0*"},
         {"Hide All But Selected Row(s)", "R0,0 C3,1", "h i j|(a x ú)|(- - -)|a x ú|(b - -)", "R0,0* C1,1"},
         {"Hide All But Selected Column(s)", "K1,0", "(h) i (j)|(a) x (ú)|(-) - (-)|(a) x (ú)|(b) - (-)", "K0,0*"},
         {"Hide Empty Row(s)", "C0,0", "h i j|a x ú|(- - -)|a x ú|b - -"},
         {"Duplicate Row(s)", "R0,0 R1,0", "h i j|a x ú|h i j|a x ú|- - -|a x ú|b - -", "R2,0* R3,0"},
         {"Duplicate Column(s)", "K1,0 C0,2", "h i j i j|a x ú x ú|- - - - -|a x ú x ú|b - - - -", "K3,0* C0,4"},
         {"Duplicate Row(s) Multiple Times", "C0,1", "h i j|h i j|h i j|a x ú|- - -|a x ú|b - -", "C1,1*", "2"},
         {"Move Row(s) Up", "R0,0 R1,0", nullptr},
         {"Move Row(s) Down", "C1,0 K2,0", "h i j|- - -|a x ú|a x ú|b - -", "C2,0* K2,0"},
         {"Move Column(s) Right", "C1,0 R3,0", "i h j|x a ú|- - -|x a ú|- b -", "C1,1* R3,0"},
         {"Move Column(s) Left", "C2,0 C3,1", nullptr, nullptr},
         {"Move Row(s) Just Above Row ...", "R1,0 C2,2", nullptr, nullptr, "1"},
         {"Move Row(s) Down", "R0,0 C1,2", "- - -|h i j|a x ú|a x ú|b - -", "R1,0* C2,2"},
         {"Move Row(s) Up", "R2,0 R6,0", "h i j|- - -|a x ú|a x ú|b - -", "R1,0* R6,0"},
         {"Move Column(s) Left", "K1,0 K5,0", "i h j|x a ú|- - -|x a ú|- b -", "K0,0* K5,0"},
         {"Move Row(s) Up", "C2,1 R4,0", "h i j|- - -|a x ú|b - -|a x ú", "C1,1* R3,0"},
         {"Move Column(s) Right", "K0,0 C1,1", "j h i|ú a x|- - -|ú a x|- b -", "K1,0* C1,2"},
         {"Move Column(s) Left", "K2,0", "h j i|a ú x|- - -|a ú x|b - -", "K1,0*"},
         {"Move Column(s) Left", "K1,0 C0,2", "i j h|x ú a|- - -|x ú a|- - b", "K0,0* C0,1"},
         {"Move Row(s) Just Above Row ...", "R1,0 C3,2", "a x ú|a x ú|h i j|- - -|b - -", "R0,0* C1,2", "0"},
         {"Move Row(s) Just Above Row ...", "R1,0 R3,0", "h i j|a x ú|a x ú|- - -|b - -", "R1,0* R2,0", "1"},
         {"Move Column(s) to the Left of Column ...", "K0,0 C1,1", "j h i|ú a x|- - -|ú a x|- b -", "K1,0* C1,2", "3"},
         {"Move Cell Contents Up", "C1,1 C1,2", "h x ú|a - -|- - -|a x ú|b - -", "C0,1* C0,2"},
         {"Move Cell Contents Down", "C1,0 C3,2", "h i j|- x ú|a - -|a x -|b - ú", "C2,0* C4,2"},
         {"Move Cell Contents Left", "R1,1", "h i j|x ú -|- - -|a x ú|b - -", "R1,0*"},
         {"Move Cell Contents Right", "K0,0", "- h j|- a ú|- - -|- a ú|- b -", "K1,0*"},
         {"Insert Row(s) Before", "R1,0 R2,0", "h i j|- - -|a x ú|- - -|- - -|a x ú|b - -", "R1,0* R3,0"},
         {"Insert Row(s) After", "C0,0 C4,1", "h i j|- - -|a x ú|- - -|a x ú|b - -|- - -", "C1,0* C6,1"},
         {"Insert Column(s) Before", "K2,0", "h i - j|a x - ú|- - - -|a x - ú|b - - -"},
         {"Insert Column(s) After", "K0,0 C2,1", "h - i - j|a - x - ú|- - - - -|a - x - ú|b - - - -", "K1,0* C2,3"},
         {"Insert Column(s) Before Multiple Times", "C0,0", "- - h i j|- - a x ú|- - - - -|- - a x ú|- - b - -",
          nullptr, "2"},
         {"Remove Row(s)", "C0,1 R3,0", "a x ú|- - -|b - -"},
         {"Remove Column(s)", "K0,0 C4,1", "j|ú|-|ú|-"},
         {"Clear Cell Contents", "K0,1 C0,2", "h i -|- x ú|- - -|- x ú|- - -"},
         {"Sort Selected Column - Ascending", "C0,2", "h i j|a x ú|a x ú|- - -|b - -"},
         {"Sort Selected Column - Descending", "C1,3", nullptr},
         {"Sort Selected Row - Ascending", "C5,0", nullptr},
         {"Sort Selected Row - Descending", "C0,1", "j i h|ú x a|- - -|ú x a|- - b"},
         {"Sort Selected Cells Vertically - Descending", "C0,0 C1,0 C3,0 C4,0", "h i j|b x ú|- - -|a x ú|a - -"},
         {"Sort Selected Cells Horizontally - Descending", "R0,1", "h j i|a x ú|- - -|a x ú|b - -"},
     }},
    {",n,m,n\nk,x,y,x\nb,2,z,2\n,,,\na,10,y,10\nb,2,z,2\nk,x,y,x\n",
     {{}, {}, 2, 1},
     "- n m n|k x y x|b 2 z 2|- - - -|a 10 y 10|b 2 z 2|k x y x",
     {
         {"Sort Selected Column - Ascending", "C4,1", "- n m n|k x y x|b 2 z 2|b 2 z 2|a 10 y 10|k x y x|- - - -"},
         {"Sort Selected Column - Descending", "C0,0", "- n m n|k x y x|- - - -|k x y x|b 2 z 2|b 2 z 2|a 10 y 10"},
         {"Sort Selected Row - Ascending", "C2,0", "- n n m|k x x y|b 2 2 z|- - - -|a 10 10 y|b 2 2 z|k x x y"},
         {"Sort Selected Row - Descending", "R4,0", "- m n n|k y x x|b z 2 2|- - - -|a y 10 10|b z 2 2|k y x x"},
         {"Remove Duplicate Row(s)", "C0,0", "- n m n|k x y x|b 2 z 2|- - - -|a 10 y 10|k x y x"},
         {"Remove Duplicate Rows (Based on Selected Columns Only)", "C0,2",
          "- n m n|k x y x|b 2 z 2|- - - -|a 10 y 10"},
         {"Remove Duplicate Column(s)", "C0,0", "- n m|k x y|b 2 z|- - -|a 10 y|b 2 z|k x y"},
         {"Remove Duplicate Columns (Based on Selected Rows Only)", "C3,0", "- n|k x|b 2|- -|a 10|b 2|k x"},
         {"Remove Empty Row(s)", "C3,0", "- n m n|k x y x|b 2 z 2|a 10 y 10|b 2 z 2|k x y x"},
         {"Remove Empty Rows (Based on Selected Columns Only)", "C0,0",
          "- n m n|k x y x|b 2 z 2|a 10 y 10|b 2 z 2|k x y x"},
         {"Remove Empty Columns (Based on Selected Rows Only)", "C3,0", "-|k|b|-|a|b|k"},
         {"Hide Empty Row(s)", "C0,0", "- n m n|k x y x|b 2 z 2|(- - - -)|a 10 y 10|b 2 z 2|k x y x"},
         {"Select Duplicate Row(s)", "C0,0", nullptr, "R5,0*"},
         {"Select Duplicate Rows (Based on Selected Columns Only)", "C0,2", nullptr, "R5,0* R6,0"},
         {"Select Duplicate Column(s)", "C0,0", nullptr, "K3,0*"},
         {"Select Duplicate Columns (Based on Selected Rows Only)", "C3,0", nullptr, "K2,0* K3,0"},
         {"Select Entire Column(s)", "C4,1", nullptr, "K1,0*"},
         {"Select Entire Column(s) (Header Excluded)", "C4,1", nullptr, "K1,2*"},
         {"Select Entire Row(s) (Header Excluded)", "C4,2 C5,0", nullptr, "R4,1* R5,1"},
         {"Select Up to Top of Column (Header Excluded)", "C4,1", nullptr, "C2,1 C3,1 C4,1*"},
         {"Select Left To Start of Row (Header Excluded)", "C4,3", nullptr, "C4,1 C4,2 C4,3*"},
         {"Select Down to Bottom of Column", "C4,1", nullptr, "C4,1* C5,1 C6,1"},
         {"Select Right to End of Row", "C4,1", nullptr, "C4,1* C4,2 C4,3"},
         {"Invert Selection by Rows (Header Excluded)", "R3,0 R4,0", nullptr, "R2,0* R5,0 R6,0"},
         {"Invert Selection by Columns (Header Excluded)", "K2,0", nullptr, "K1,0* K3,0"},
         {"Go to Top", "C4,2", nullptr, "C0,2*"},
         {"Go to Bottom", "C4,2", nullptr, "C6,2*"},
         {"Go to Far Left", "C4,2", nullptr, "C4,0*"},
         {"Go to Far Right", "C4,2", nullptr, "C4,3*"},
         {"Move Selection Up", "C4,2", nullptr, "C3,2*"},
         {"Move Selection Down", "C4,2", nullptr, "C5,2*"},
         {"Move Selection Left", "C4,2", nullptr, "C4,1*"},
         {"Move Selection Right", "C4,2", nullptr, "C4,3*"},
         {"Move Selection Up by a Block", "C6,2", nullptr, "C4,2*"},
         {"Move Selection Down by a Block", "C4,0 C4,2", nullptr, "C6,0* C6,2"},
         {"Move Selection Left by a Block", "C4,3", nullptr, "C4,0*"},
         {"Move Selection Right by a Block", "C2,0", nullptr, "C2,3*"},
         {"Select Up", "C4,2", nullptr, "C3,2 C4,2*"},
         {"Select Down", "C4,2", nullptr, "C4,2* C5,2"},
         {"Select Left", "C4,2", nullptr, "C4,1 C4,2*"},
         {"Select Right", "C4,2", nullptr, "C4,2* C4,3"},
         {"Select Up by a Block", "C6,3", nullptr, "C4,3 C5,3 C6,3*"},
         {"Select Down by a Block", "C4,1", nullptr, "C4,1* C5,1 C6,1"},
         {"Select Left by a Block", "C4,2", nullptr, "C4,0 C4,1 C4,2*"},
         {"Select Right by a Block", "C2,1", nullptr, "C2,1* C2,2 C2,3"},
         {"Sort Selected Cells Horizontally - Ascending", "R1,1",
          "- n m n|k x x y|b 2 z 2|- - - -|a 10 y 10|b 2 z 2|k x y x"},
         {"Sort Selected Cells Vertically - Ascending", "C2,2 C4,2",
          "- n m n|k x y x|b 2 y 2|- - - -|a 10 z 10|b 2 z 2|k x y x"},
         {"Insert Row(s) Before", "R0,0", "- - - -|- n m n|k x y x|b 2 z 2|- - - -|a 10 y 10|b 2 z 2|k x y x"},
     }},
    {"h,i,j,k\na,1,p,x\nb,2,q,y\nc,3,r,z\nd,4,s,w\n",
     {{2}, {1}, 1, 0},
     "h (i) j k|a (1) p x|(b (2) q y)|c (3) r z|d (4) s w",
     {
         {"Insert Row(s) Before", "R2,0", "h (i) j k|a (1) p x|(b (2) q y)|- (-) - -|c (3) r z|d (4) s w"},
         {"Insert Row(s) After", "R1,0", "h (i) j k|a (1) p x|(b (2) q y)|- (-) - -|c (3) r z|d (4) s w", "R2,0*"},
         {"Insert Column(s) Before", "K1,0", "h (i) - j k|a (1) - p x|(b (2) - q y)|c (3) - r z|d (4) - s w"},
         {"Insert Column(s) After", "C0,0", "h (i) - j k|a (1) - p x|(b (2) - q y)|c (3) - r z|d (4) - s w", "C0,1*"},
         {"Insert Row(s) Before Multiple Times", "C2,0",
          "h (i) j k|a (1) p x|(b (2) q y)|- (-) - -|- (-) - -|c (3) r z|d (4) s w", nullptr, "2"},
         {"Remove Row(s)", "R1,0 R2,0", "h (i) j k|(b (2) q y)|d (4) s w"},
         {"Remove Column(s)", "K0,0 K1,0", "(i) k|(1) x|((2) y)|(3) z|(4) w"},
         {"Duplicate Row(s)", "R1,0 R2,0", "h (i) j k|a (1) p x|(b (2) q y)|c (3) r z|a (1) p x|c (3) r z|d (4) s w",
          "R3,0* R4,0"},
         {"Duplicate Column(s)", "K0,0", "h (i) h j k|a (1) a p x|(b (2) b q y)|c (3) c r z|d (4) d s w", "K1,0*"},
         {"Move Row(s) Down", "R1,0", "h (i) j k|c (3) r z|(b (2) q y)|a (1) p x|d (4) s w", "R2,0*"},
         {"Move Row(s) Up", "R2,0 R3,0", "h (i) j k|c (3) r z|(b (2) q y)|d (4) s w|a (1) p x", "R1,0* R2,0"},
         {"Move Column(s) Right", "K0,0", "j (i) h k|p (1) a x|(q (2) b y)|r (3) c z|s (4) d w", "K1,0*"},
         {"Move Column(s) Left", "K1,0 K2,0", "j (i) k h|p (1) x a|(q (2) y b)|r (3) z c|s (4) w d", "K0,0* K1,0"},
         {"Move Row(s) Just Above Row ...", "R3,0", "h (i) j k|d (4) s w|(b (2) q y)|a (1) p x|c (3) r z", "R1,0*",
          "1"},
         {"Move Column(s) to the Left of Column ...", "K2,0", "k (i) h j|x (1) a p|(y (2) b q)|z (3) c r|w (4) d s",
          "K0,0*", "0"},
         {"Sort Selected Column - Descending", "C0,0", "h (i) j k|d (4) s w|c (3) r z|(b (2) q y)|a (1) p x"},
         {"Sort Selected Row - Descending", "C0,0", "k j (i) h|x p (1) a|(y q (2) b)|z r (3) c|w s (4) d"},
         {"Sort Selected Cells Vertically - Descending", "K1,0", "h (i) s k|a (1) r x|(b (2) q y)|c (3) p z|d (4) j w"},
         {"Sort Selected Cells Horizontally - Descending", "R2,0",
          "h (i) j k|a (1) p x|(b (2) q y)|z (3) r c|d (4) s w"},
         {"Clear Cell Contents", "T0,0", "- (i) - -|- (1) - -|(b (2) q y)|- (3) - -|- (4) - -"},
         {"Clear Cell Contents", "K1,1", "h (i) j k|a (1) - x|(b (2) q y)|c (3) - z|d (4) - w"},
         {"Upper Case", "R0,0 C2,1", "H (i) J K|a (1) p x|(b (2) q y)|c (3) R z|d (4) s w"},
         {"Copy Main Cell Contents to All Selected Cells", "C1,1 K0,0",
          "p (i) j k|p (1) p x|(b (2) q y)|p (3) r z|p (4) s w"},
         {"Transpose Selected Cells", "C1,0 C1,1 C2,0 C2,1", "h (i) j k|a (1) c x|(b (2) q y)|p (3) r z|d (4) s w"},
         {"Transpose Table", "R2,0", "h a (b) c d|(i 1 (2) 3 4)|j p (q) r s|k x (y) z w", "K2,0*"},
         {"Insert Cells, Move Rest of Row Right", "C2,0",
          "h (i) j k -|a (1) p x -|(b (2) q y -)|- (3) c r z|d (4) s w -"},
         {"Insert Cells, Move Rest of Column Down", "C1,0",
          "h (i) j k|- (1) p x|(b (2) q y)|a (3) r z|c (4) s w|d (-) - -"},
         {"Remove Selected Cells, Move Rest of Row Left", "C2,0",
          "h (i) j k|a (1) p x|(b (2) q y)|r (3) z -|d (4) s w"},
         {"Remove Selected Cells, Move Rest of Column Up", "C1,1",
          "h (i) j k|a (1) r x|(b (2) q y)|c (3) s z|d (4) - w"},
         {"Remove Selected Cells and the Rest of Their Columns", "C1,2",
          "h (i) j k|a (1) p -|(b (2) q y)|c (3) r -|d (4) s -"},
         {"Move Cell Contents Down", "C1,0 C1,1", "h (i) j k|- (1) - x|(b (2) q y)|a (3) p z|d (4) s w", "C2,0* C2,1"},
         {"Move Cell Contents To ...", "C1,0", "h (i) j k|- (1) p x|(b (2) q y)|c (3) a z|d (4) s w", "C2,1*", "3 2"},
         {"Duplicate Selected Cell Contents Right", "C1,0", "h (i) j k|a (1) a x|(b (2) q y)|c (3) r z|d (4) s w",
          "C1,1*"},
         {"Duplicate Cell Contents To ...", "C1,0 C1,1", "h (i) j k|a (1) p x|(b (2) q y)|c (3) r z|a (4) p w",
          "C3,0* C3,1", "4"},
         {"Hide Selected Row(s)", "R3,0", "h (i) j k|a (1) p x|(b (2) q y)|c (3) r z|(d (4) s w)", "C2,0*"},
         {"Hide All But Selected Column(s)", "C2,1",
          "(h) (i) j (k)|(a) (1) p (x)|((b) (2) q (y))|(c) (3) r (z)|(d) (4) s (w)", "C2,0*"},
         {"Show Hidden Row(s) in Selection", "C1,0 C2,0", "h (i) j k|a (1) p x|b (2) q y|c (3) r z|d (4) s w",
          "C1,0* C3,0"},
         {"Show Hidden Column(s) in Selection", "C1,1 C1,2", nullptr},
         {"Show All Hidden Column(s)", "K1,0", "h i j k|a 1 p x|(b 2 q y)|c 3 r z|d 4 s w", "K2,0*"},
         {"Remove All Filtered Out and Hidden Data", "C2,2", "h j k|a p x|c r z|d s w"},
         {"Go to Cell", "C0,0", nullptr, "C24,7*", "c8, 25"},
         {"Go to Cell", "C3,1", nullptr, "C1,1*", "2"},
         {"Go to Cell", "C2,2", nullptr, "C2,0*", "c1"},
         {"Go to Bottom", "C0,1", nullptr, "C3,1*"},
         {"Go to Far Right", "C1,0", nullptr, "C1,2*"},
         {"Select Right to End of Row", "C1,0", nullptr, "C1,0* C1,1 C1,2"},
         {"Select From Main Cell To ...", "C1,1", nullptr, "C1,1* C1,2 C2,1 C2,2 C3,1 C3,2", "4 3"},
         {"Select Down to Bottom of Column", "C1,1", nullptr, "C1,1* C2,1 C3,1"},
         {"Invert Selection by Columns (Header Excluded)", "K0,0", nullptr, "K1,0* K2,0"},
     }},
    {"t,u\nh,i\nc,1\na,2\nb,3\n",
     {{0}, {}, 1, 0},
     "(t u)|h i|c 1|a 2|b 3",
     {
         {"Sort Selected Column - Ascending", "C1,0", "(t u)|h i|a 2|b 3|c 1"},
         {"Sort Selected Column - Descending", "C0,1", "(t u)|h i|b 3|a 2|c 1"},
         {"Select Entire Column(s) (Header Excluded)", "C2,0", nullptr, "K0,1*"},
         {"Select Up to Top of Column (Header Excluded)", "C3,1", nullptr, "C1,1 C2,1 C3,1*"},
         {"Invert Selection by Rows (Header Excluded)", "R1,0", nullptr, "R2,0* R3,0"},
         {"Invert Selection by Rows (Header Excluded)", "R2,0", nullptr, "R1,0* R3,0"},
         {"Show All Hidden Row(s)", "C2,1", "t u|h i|c 1|a 2|b 3", "C3,1*"},
     }},
    {"t,h,c,a,b\nu,i,1,2,3\n",
     {{}, {0}, 0, 1},
     "(t) h c a b|(u) i 1 2 3",
     {
         {"Sort Selected Row - Descending", "C1,0", "(t) h b a c|(u) i 3 2 1"},
         {"Select Entire Row(s) (Header Excluded)", "C0,2", nullptr, "R0,1*"},
         {"Select Left To Start of Row (Header Excluded)", "C1,3", nullptr, "C1,1 C1,2 C1,3*"},
         {"Invert Selection by Columns (Header Excluded)", "K1,0", nullptr, "K2,0* K3,0"},
         {"Invert Selection by Columns (Header Excluded)", "K3,0", nullptr, "K1,0* K2,0"},
         {"Show All Hidden Column(s)", "C1,2", "t h c a b|u i 1 2 3", "C1,3*"},
     }},
    {"h,i,j\na,3,1\nb,2,3\nc,1,2\n",
     {{1}, {1}, 1, 0},
     "h (i) j|(a (3) 1)|b (2) 3|c (1) 2",
     {
         {"Sort Selected Column - Ascending", "C0,1", "h (i) j|(a (3) 1)|c (1) 2|b (2) 3"},
         {"Sort Selected Row - Ascending", "C1,0", "(i) j h|((3) 1 a)|(2) 3 b|(1) 2 c"},
         {"Sort Selected Row - Descending", "C2,1", "h j (i)|(a 1 (3))|b 3 (2)|c 2 (1)"},
     }},
    // What tells lines apart or fills them may be hidden itself; a hidden line repeats nothing.
    {"h,i,j\na,1,\na,1,\na,2,\n,3,\n,,\na,1,\n",
     {{1}, {1}, 1, 0},
     "h (i) j|(a (1) -)|a (1) -|a (2) -|- (3) -|- (-) -|a (1) -",
     {
         {"Select Duplicate Row(s)", "C0,0", nullptr, "R5,0*"},
         {"Remove Duplicate Row(s)", "C0,0", "h (i) j|(a (1) -)|a (1) -|a (2) -|- (3) -|- (-) -"},
         {"Select Duplicate Rows (Based on Selected Columns Only)", "C0,0", nullptr, "R2,0* R4,0 R5,0"},
         {"Select Duplicate Rows (Based on Selected Columns Only)", "C0,1", nullptr, "R2,0* R3,0 R4,0 R5,0"},
         {"Remove Empty Row(s)", "C0,0", "h (i) j|(a (1) -)|a (1) -|a (2) -|- (3) -|a (1) -"},
         {"Hide Empty Row(s)", "C0,0", "h (i) j|(a (1) -)|a (1) -|a (2) -|- (3) -|(- (-) -)|a (1) -"},
         {"Remove Empty Rows (Based on Selected Columns Only)", "C0,0", "h (i) j|(a (1) -)|a (1) -|a (2) -|a (1) -"},
     }},
    {"h,a,a,a,,,a\ni,1,1,2,3,,1\nj,,,,,,\n",
     {{1}, {1}, 0, 1},
     "h (a) a a - - a|(i (1) 1 2 3 - 1)|j (-) - - - - -",
     {
         {"Select Duplicate Column(s)", "C0,0", nullptr, "K5,0*"},
         {"Remove Duplicate Column(s)", "C0,0", "h (a) a a - -|(i (1) 1 2 3 -)|j (-) - - - -"},
         {"Select Duplicate Columns (Based on Selected Rows Only)", "C0,0", nullptr, "K2,0* K4,0 K5,0"},
         {"Remove Duplicate Columns (Based on Selected Rows Only)", "C0,0", "h (a) a -|(i (1) 1 3)|j (-) - -"},
         {"Remove Empty Column(s)", "C0,0", "h (a) a a - a|(i (1) 1 2 3 1)|j (-) - - - -"},
         {"Hide Empty Column(s)", "C0,0", "h (a) a a - (-) a|(i (1) 1 2 3 (-) 1)|j (-) - - - (-) -"},
         {"Remove Empty Columns (Based on Selected Rows Only)", "C0,0", "h (a) a a a|(i (1) 1 2 1)|j (-) - - -"},
     }},
    {"h,,j\na,,1\n,,\nb,,2\n",
     {{2, 3}, {1, 2}, 1, 0},
     "h (-) (j)|a (-) (1)|(- (-) (-))|(b (-) (2))",
     {
         {"Show Empty Row(s)", "C0,0", "h (-) (j)|a (-) (1)|- (-) (-)|(b (-) (2))"},
         {"Show Empty Column(s)", "C0,0", "h - (j)|a - (1)|(- - (-))|(b - (2))"},
         {"Show Hidden Row(s) in Selection", "C1,0", "h (-) (j)|a (-) (1)|- (-) (-)|b (-) (2)"},
         {"Show Hidden Column(s) in Selection", "K0,0", "h - j|a - 1|(- - -)|(b - 2)"},
         {"Remove All Filtered Out and Hidden Data", "C0,0", "h|a"},
     }},
    {"h,i,,\na,,,\n,,,\n",
     {{1}, {}, 1, 0},
     "h i - -|(a - - -)|- - - -",
     {
         {"Remove Extraneous Rows and Columns", "C0,1", "h i|(a -)"},
         {"Remove Empty Column(s)", "C0,1", "h i|(a -)|- -"},
         {"Hide Empty Column(s)", "C0,1", "h i (-) (-)|(a - (-) (-))|- - (-) (-)"},
     }},
    {"h,Two words, x ,-007\n",
     {{}, {}, 0, 0},
     "h Two words  x  -007",
     {
         {"Upper Case", "C0,1", "h TWO WORDS  x  -007"},
         {"Lower Case", "C0,1", "h two words  x  -007"},
         {"Title Case", "C0,1", "h Two Words  x  -007"},
         {"Upper Camel Case", "C0,1", "h TwoWords  x  -007"},
         {"Lower Camel Case", "C0,1", "h twoWords  x  -007"},
         {"Upper Snake Case", "C0,1", "h TWO_WORDS  x  -007"},
         {"Lower Snake Case", "C0,1", "h two_words  x  -007"},
         {"Convert to Acronym", "C0,1", "h TW  x  -007"},
         {"Trim Selected Cell(s)", "C0,1 C0,2", "h Two words x -007"},
         {"Remove Leading Zeros", "R0,0", "h Two words  x  -7"},
     }},
};

QByteArray transposed(QByteArray const& csv) {
    QList<QByteArray> const lines = csv.chopped(1).split('\n');
    QByteArray result;
    for (int col = 0; col <= lines.front().count(','); ++col) {
        for (QByteArray const& line : lines)
            result += line.split(',').value(col) + ',';
        result.back() = '\n';
    }
    return result;
}

class EachDataCommand : public TellingFixture, public testing::WithParamInterface<std::tuple<std::size_t, bool>> {
protected:
    /// Without rows at the end that hold nothing: those behind what was ever edited are not written.
    static QByteArray withContent(QByteArray const& bytes) {
        return QString::fromUtf8(bytes).remove(QRegularExpression("(?<=\n),*\n(,*\n)*$")).toUtf8();
    }
    /// The data as a save writes them.
    QByteArray asSaved() const {
        TableData const& data = model().getTableData();
        QByteArray bytes;
        for (int row = 0; row < data.numRawRows(); ++row) {
            for (int col = 0; col < data.numRawCols(); ++col)
                bytes += data.getValueRaw(row, col).toString().toUtf8() + ',';
            bytes.back() = '\n';
        }
        return bytes;
    }
};

TEST_P(EachDataCommand, DoesWhatItsNameSaysAndUndoTakesItBackHoweverTheTableIsStored) {
    auto const [index, isTransposed] = GetParam();
    Table const& start = tables[index];
    open(isTransposed ? transposed(start.content) : start.content);
    if (isTransposed)
        model().toggleTranspose();
    model().setAndApplyHiddenRowsList(start.standing.hiddenRows);
    model().setAndApplyHiddenColsList(start.standing.hiddenCols);
    table()->setNumberOfHeaderRows(start.standing.headerRows, false);
    table()->setNumberOfHeaderColumns(start.standing.headerCols, false);
    QUndoStack& stack = *table()->undoStack();
    for (Case const& test : start.cases) {
        SCOPED_TRACE(std::string(test.name) + " on " + test.selection + " of " + start.before);
        select(test.selection);
        std::string const selectedBefore = selection();
        std::string const selected = test.selected == nullptr ? selectedBefore : inOrder(test.selected);
        std::string const expected = test.expected == nullptr ? start.before : test.expected;
        ASSERT_EQ(stored(), start.before);
        run(test.name, test.answer == nullptr ? QStringList() : QStringList(test.answer));
        EXPECT_EQ(stored(), expected);
        EXPECT_EQ(selection(), selected);
        EXPECT_EQ(told(), toBeTold());
        EXPECT_EQ(stack.index(), test.expected == nullptr ? 0 : 1);
        if (stack.index() == 0)
            continue;
        window.runCommand("Undo");
        EXPECT_EQ(stored(), start.before);
        EXPECT_EQ(selection(), selectedBefore);
        EXPECT_EQ(told(), toBeTold());
        window.runCommand("Redo");
        EXPECT_EQ(stored(), expected);
        EXPECT_EQ(selection(), selected);
        EXPECT_EQ(told(), toBeTold());
        EXPECT_TRUE(window.saveFile(table()));
        EXPECT_EQ(withContent(read("a.csv")), withContent(asSaved()));
        window.runCommand("Undo");
    }
    stack.setClean();
}

INSTANTIATE_TEST_SUITE_P(All, EachDataCommand,
                         testing::Combine(testing::Range(std::size_t(0), std::size(tables)), testing::Bool()));

TEST_F(DataCommands, NothingToDoLeavesTheTableUnchanged) {
    open("H,I\nA,X\n");
    for (char const* const name :
         {"Upper Case", "Trim Selected Cell(s)", "Remove Duplicate Row(s)", "Remove Empty Column(s)",
          "Remove Extraneous Rows and Columns", "Remove All Filtered Out and Hidden Data", "Show All Hidden Row(s)",
          "Remove Empty Rows (Based on Selected Columns Only)", "Insert Cells, Move Rest of Row Right",
          "Select Duplicate Row(s)"}) {
        select(name == std::string("Upper Case") ? "T0,0" : "C7,9");
        window.runCommand(name);
        EXPECT_TRUE(window.getActiveTable()->undoStack()->isClean()) << name;
    }
}

TEST_F(DataCommands, MovedAndDuplicatedContentsLeaveCellsAloneThatWereTakenOutOfTheSelection) {
    open("a,b\n1,2\n3,4\n");
    for (auto const& [command, expected] : {std::pair("Move Cell Contents Right", "- a|1 2|- 3"),
                                            std::pair("Duplicate Selected Cell Contents Right", "a a|1 2|3 3")}) {
        select("K0,0*");
        ASSERT_TRUE(model().removeCellFromSelection(1, 0));
        window.runCommand(command);
        EXPECT_EQ(stored(), expected) << command;
        window.runCommand("Undo");
        EXPECT_EQ(stored(), "a b|1 2|3 4");
    }
}

TEST_F(DataCommands, ClearingAsksBeforeItEmptiesCellsThatWereTakenOutOfTheSelection) {
    struct Answer {
        char const* label;
        char const* expected;
    };
    open("a,b\n1,2\n3,4\n");
    QUndoStack const& stack = *table()->undoStack();
    for (auto const& [label, expected] :
         {Answer{"Leave Them Out", "- -|- 2|- -"}, {"Change All", "- -|- -|- -"}, {"Cancel", "a b|1 2|3 4"}}) {
        SCOPED_TRACE(label);
        select("T0,0");
        ASSERT_TRUE(model().removeCellFromSelection(1, 1));
        box.next(label);
        window.runCommand("Clear Cell Contents");
        EXPECT_EQ(box.texts().value(box.texts().size() - 1),
                  "1 cell that was taken out of the selection would be changed too.");
        EXPECT_EQ(stored(), expected);
        EXPECT_EQ(stack.index(), label == QLatin1String("Cancel") ? 0 : 1);
        window.runCommand("Undo");
        EXPECT_EQ(stored(), "a b|1 2|3 4");
        EXPECT_FALSE(model().getSelectedSet().covers(1, 1)) << "the selection is that of before";
    }
    ::change(*table(), QString(), 1, 1);
    select("T0,0");
    ASSERT_TRUE(model().removeCellFromSelection(1, 1));
    window.runCommand("Clear Cell Contents");
    EXPECT_EQ(stored(), "- -|- -|- -") << "nothing is asked about a cell that is empty";
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
    for (int tab = 1; tab <= 10; ++tab)
        open(QByteArray::number(tab) + '\n', QString("%1.csv").arg(tab));
    for (int tab = 1; tab <= 10; ++tab) {
        window.runCommand(QString("Switch to Tab %1").arg(tab));
        EXPECT_EQ(shown(), std::to_string(tab));
    }
    for (auto const& [side, expected] : {std::pair("Right", "1"), std::pair("Left", "10"), std::pair("Left", "9")}) {
        window.runCommand(QString("Switch to Tab on the ") + side);
        EXPECT_EQ(shown(), expected);
    }
    window.runCommand("Close File");
    EXPECT_EQ(shown(), "8");
    window.runCommand("Switch to Tab 2");
    window.runCommand("Switch to Tab 10");
    EXPECT_EQ(shown(), "2");
    QGuiApplication::clipboard()->setText("before");
    window.runCommand("New File");
    for (char const* const what : {"File Name", "Folder Path", "File Path"})
        window.runCommand(QString("Copy %1 to Clipboard").arg(what));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before") << "it is in no file";
    window.runCommand("Close File");
    window.runCommand("Copy File Name to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2.csv");
    window.runCommand("Copy Folder Path to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), directory.path());
    window.runCommand("Copy File Path to Clipboard");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), directory.filePath("2.csv"));

    window.runCommand("Close All Files Except Current");
    EXPECT_EQ(window.getPaneView()->getTables().size(), 1U);
    EXPECT_EQ(shown(), "2");
}

TEST_F(DataCommands, EachCommandForHeadersChangesItsOwnOnlyAndOnlyInItsTable) {
    auto const state = [this] {
        TableView const& of = *table();
        return QString("%1 %2 %3%4 %5%6")
            .arg(of.getNumHeaderRows())
            .arg(of.getNumHeaderCols())
            .arg(int(of.areHeaderRowsFrozen()))
            .arg(int(of.areHeaderColsFrozen()))
            .arg(int(of.areHeaderRowsHighlighted()))
            .arg(int(of.areHeaderColsHighlighted()));
    };
    open("1,2,3\n4,5,6\n7,8,9\n");
    QString const untouched = state();
    open("1,2,3\n4,5,6\n7,8,9\n", "b.csv");
    select("C2,1");
    for (auto const& [command, expected] : std::initializer_list<std::pair<char const*, char const*>>{
             {"Set Headers to Selected Cell", "3 2 10 11"},
             {"Remove Header Rows", "0 2 10 11"},
             {"Set Header Rows to Selected Row", "3 2 10 11"},
             {"Remove Header Columns", "3 0 10 11"},
             {"Set Header Columns to Selected Column", "3 2 10 11"},
             {"Toggle Freeze Header Rows and Columns", "3 2 11 11"},
             {"Toggle Freeze Header Rows", "3 2 01 11"},
             {"Toggle Freeze Header Rows and Columns", "3 2 11 11"},
             {"Toggle Freeze Header Columns", "3 2 10 11"},
             {"Toggle Freeze Header Rows", "3 2 00 11"},
             {"Toggle Highlight Header Rows", "3 2 00 01"},
             {"Toggle Highlight Header Columns", "3 2 00 00"},
             {"Toggle Freeze Header Rows and Columns", "3 2 11 00"},
             {"Toggle Freeze Header Rows and Columns", "3 2 00 00"},
             {"Remove All Headers", "0 0 00 00"},
         }) {
        window.runCommand(command);
        EXPECT_EQ(state(), expected) << command;
    }
    window.runCommand("Switch to Tab 1");
    EXPECT_EQ(state(), untouched);
}

TEST_F(DataCommands, ClosingTheOthersStopsWhereTheUserCancels) {
    open("1\n", "a.csv");
    select("C0,0");
    window.runCommand("Insert Row(s) Before");
    open("2\n", "b.csv");
    box.next("Cancel");
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
    auto const signOf = [](int value) { return (value > 0) - (value < 0); };
    for (auto const& [direction, rows, cols] :
         {std::tuple("Down", 1, 0), std::tuple("Right", 0, 1), std::tuple("Up", -1, 0), std::tuple("Left", 0, -1)}) {
        int const top = table.verticalScrollBar()->value();
        int const left = table.horizontalScrollBar()->value();
        window.runCommand(QString("Scroll %1 One Screen").arg(direction));
        EXPECT_EQ(signOf(table.verticalScrollBar()->value() - top), rows) << direction;
        EXPECT_EQ(signOf(table.horizontalScrollBar()->value() - left), cols) << direction;
    }
    EXPECT_EQ(textOf(model().getSelection()), "C3,3*");
    for (auto const& [direction, rows, cols] :
         {std::tuple("Down", 1, 0), std::tuple("Right", 0, 1), std::tuple("Up", -1, 0), std::tuple("Left", 0, -1)}) {
        Range const before = model().getMainCell();
        window.runCommand(QString("Go %1 One Screen").arg(direction));
        EXPECT_EQ(signOf(model().getMainCell().row - before.row), rows) << direction;
        EXPECT_EQ(signOf(model().getMainCell().col - before.col), cols) << direction;
    }
}

} // namespace
