#include "model/Selection.h"

#include "tests/model/SelectionText.h"

#include <stdexcept>

namespace {

constexpr GridSize view{10, 8};

Selection selectionOf(char const* text, Range const& mainCell) {
    Selection selection;
    selection.setSelection(mainCell, rangesFrom(text));
    return selection;
}

TEST(Selection, EveryFormOfSettingFindsItsMainCell) {
    struct MainCase {
        char const* range;
        int mainIndex;
        std::pair<int, int> fromStart; ///< the main cell when the range is set alone
        std::pair<int, int> absolute;  ///< the main cell when it is set in a list
    };
    const MainCase cases[] = {
        {"C3,4*", -1, {3, 4}, {3, 4}},
        {"R3,2*", 3, {3, 5}, {3, 3}},
        {"K3,2*", 3, {5, 3}, {3, 3}},
        {"T3,2*", 3, {6, 5}, {3, 3}},
    };
    for (MainCase const& c : cases) {
        Range range = rangesFrom(c.range).front();
        range.mainIndex = range.mainRow = range.mainCol = c.mainIndex;
        range.setValue("new");
        range.setOldValue("old");
        Selection alone;
        Range given = range;
        given.hasMainCell = false;
        EXPECT_EQ(alone.setSelection(given).multiCell, false) << c.range;
        EXPECT_TRUE(given.hasMainCell);
        EXPECT_EQ(std::pair(alone.mainCell().row, alone.mainCell().col), c.fromStart) << c.range;
        EXPECT_EQ(alone.mainCell().value(), "new");
        EXPECT_EQ(alone.mainCell().oldValue(), "old");

        Selection listed;
        const SelectionChange change = listed.setSelection(RangeVector{range, modelCell(9, 7)}, true);
        EXPECT_TRUE(change.mainCell && change.ranges && change.size && change.multiCell.value());
        EXPECT_EQ(std::pair(listed.mainCell().row, listed.mainCell().col), c.absolute) << c.range;
        EXPECT_EQ(listed.mainCell().value(), "new");

        Selection again;
        again.setSelection(Selection::withAbsoluteMainCell(alone.ranges()), true);
        EXPECT_EQ(again.mainCell(), alone.mainCell()) << c.range;
    }
}

TEST(Selection, AListWithoutMainCellPutsItAtTheOrigin) {
    for (auto const& [text, expected] :
         {std::pair("", "C0,0*"), std::pair("C2,2", "C2,2 C0,0*"), std::pair("R0,0", "R0,0*")}) {
        Selection selection;
        selection.setSelection(rangesFrom(text), true);
        EXPECT_EQ(textOf(selection.ranges()), expected);
    }
}

TEST(Selection, OnlyTheFirstFlagCounts) {
    Selection selection;
    selection.setSelection(rangesFrom("C5,5 C3,3* C1,1*"), true);
    EXPECT_EQ(textOf(selection.ranges()), "C1,1 C3,3* C5,5");
    EXPECT_EQ(selection.setMainCell(modelCell(5, 5)).multiCell, true);
    EXPECT_EQ(textOf(selection.ranges()), "C1,1 C3,3 C5,5*");
}

TEST(Selection, ARangeWithoutMainCellIsAFault) {
    Selection selection;
    Range row = rangesFrom("R3,0").front();
    try {
        selection.setSelection(row);
        FAIL() << "no main cell, no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "Invalid main range_model.");
    }
}

TEST(Selection, ClearingLeavesTheMainCellAlone) {
    Selection selection = selectionOf("C1,1 R4,0", modelCell(1, 1));
    const SelectionChange change = selection.clearSelection(Range(RangeType::None));
    EXPECT_TRUE(change.mainCell && change.ranges && !change.size && !change.multiCell);
    EXPECT_TRUE(selection.ranges().empty());
    EXPECT_TRUE(selection.isSelectionMultiCell());
    EXPECT_EQ(selection.mainCell(), modelCell(1, 1));
    selection.clearSelection(modelCell(2, 2));
    EXPECT_EQ(selection.mainCell(), modelCell(2, 2));
}

TEST(Selection, AddingInsideARowLeavesTheList) {
    Selection selection = selectionOf("R2,0", modelCell(2, 0));
    const SelectionChange change = selection.addCellToSelection(modelCell(2, 5));
    EXPECT_EQ(textOf(selection.ranges()), "R2,0*");
    EXPECT_TRUE(change.size && !change.ranges && !change.mainCell);
    EXPECT_EQ(change.multiCell, true);
    EXPECT_TRUE(selection.isRowSelected(2));
    EXPECT_FALSE(selection.isColSelected(2));
}

TEST(Selection, TakesExactlyOneCellOut) {
    struct OutCase {
        char const* ranges;
        int row, col;
        bool removed;
    };
    const OutCase cases[] = {
        {"C4,4* C5,5", 4, 4, false}, {"C4,4* C5,5", 5, 5, true}, {"C4,4*", 7, 7, false},    {"R4,3", 4, 3, true},
        {"R4,3", 4, 2, false},       {"K4,3", 3, 4, true},       {"K4,3", 2, 4, false},     {"T1,1", 6, 6, true},
        {"T1,1", 0, 6, false},       {"T1,1 C0,5", 0, 5, true},  {"R4,0 K4,0", 4, 7, true},
    };
    for (OutCase const& c : cases) {
        SCOPED_TRACE(std::string(c.ranges) + " - " + std::to_string(c.row) + "," + std::to_string(c.col));
        Selection selection = selectionOf(c.ranges, modelCell(4, 4));
        auto expected = cellsOf(selection.ranges(), view);
        EXPECT_EQ(selection.removeCellFromSelection(c.row, c.col), c.removed);
        if (c.removed)
            expected.erase({c.row, c.col});
        EXPECT_EQ(cellsOf(selection.ranges(), view), expected);
        EXPECT_FALSE(selection.removeCellFromSelection(c.row, c.col));
    }
}

TEST(Selection, ACellTakenOutOfATableComesBackWhenAdded) {
    Selection selection = selectionOf("T0,0", modelCell(0, 0));
    const auto all = cellsOf(selection.ranges(), view);
    selection.removeCellFromSelection(3, 3);
    selection.removeCellFromSelection(3, 4);
    EXPECT_EQ(cellsOf(selection.ranges(), view).size(), all.size() - 2);
    selection.addCellsToSelection(rangesFrom("C3,3 C3,4 C5,5"));
    EXPECT_EQ(cellsOf(selection.ranges(), view), all);
    EXPECT_EQ(textOf(selection.ranges()), "T0,0*");
}

TEST(Selection, MeasuresWhatIsSelected) {
    struct SizeCase {
        char const* ranges;
        RangeSize size;
        qint64 cells;
    };
    const SizeCase cases[] = {
        {"C4,4", {1, 0, 0, 1, 1}, 1},
        {"C4,4 C4,5 C5,4 C5,5 C6,4 C6,5", {6, 0, 0, 3, 2}, 6},
        {"C4,4 C4,5 C5,4", {3, 0, 0, 0, 0}, 3},
        {"C4,4 C6,4", {2, 0, 0, 0, 0}, 2},
        {"C4,4 C4,5 C5,5 C5,6", {4, 0, 0, 0, 0}, 4},
        {"R4,0 R5,2", {0, 2, 0, 0, 0}, 14},
        {"K4,0 R7,0 C3,3", {1, 1, 1, 0, 0}, 19},
        {"T2,3", {40, 0, 0, 0, 0}, 40},
    };
    for (SizeCase const& c : cases) {
        Selection selection = selectionOf(c.ranges, modelCell(4, 4));
        EXPECT_EQ(selection.getSelectionSize(view), c.size) << c.ranges;
        EXPECT_EQ(selection.numSelectedCells(view), c.cells) << c.ranges;
    }
    Selection table = selectionOf("T0,0", modelCell(0, 0));
    EXPECT_EQ(table.getSelectionSize({2000000, 2000}).cells, INT_MAX);
    EXPECT_EQ(table.numSelectedCells({2000000, 2000}), 4000000000);
}

TEST(Selection, MeasuresTheRectangleOfADrag) {
    Selection selection = selectionOf("C4,4", modelCell(4, 4));
    EXPECT_EQ(selection.setPendingSelectionCorner(modelCell(4, 4), true, view), (RangeSize{1, 0, 0, 1, 1}));
    EXPECT_EQ(selection.pendingCornerEnd().row, -1);
    EXPECT_EQ(selection.setPendingSelectionCorner(modelCell(4, 4), false, view), (RangeSize{1, 0, 0, 0, 0}));
    EXPECT_EQ(selection.setPendingSelectionCorner(modelCell(4, 4), false, view), std::nullopt);
    EXPECT_EQ(selection.setPendingSelectionCorner(modelCell(2, 7), false, view), (RangeSize{0, 0, 0, 3, 4}));
    selection.addCellToSelection(modelCell(0, 0));
    EXPECT_EQ(selection.setPendingSelectionCorner(modelCell(4, 4), false, view), (RangeSize{0, 0, 0, 1, 1}));
}

TEST(Selection, MovesNoFurtherThanItsMainCellCan) {
    struct MoveCase {
        int rows, cols;
        char const* ranges;
    };
    const MoveCase cases[] = {
        {1, 1, "C5,5* R7,1"}, {-9, 0, "C0,4* R2,0"}, {0, -9, "C4,0* R6,-4"}, {99, 99, "C9,7* R11,3"}};
    for (MoveCase const& c : cases) {
        Selection selection = selectionOf("C4,4 R6,0", modelCell(4, 4));
        const SelectionChange change = selection.moveSelectionRelative(c.rows, c.cols, view);
        selection.getSelectionSize(view);
        EXPECT_EQ(textOf(selection.ranges()), c.ranges);
        EXPECT_TRUE(change.ranges);
        EXPECT_EQ(selection.mainCell(), selection.ranges().front());
    }
    Selection selection = selectionOf("C4,4", modelCell(4, 4));
    selection.moveSelectionVertically(rangesFrom("C4,4 C5,4"), 2);
    EXPECT_EQ(textOf(selection.ranges()), "C6,4* C7,4");
    selection.moveSelectionHorizontally(selection.ranges(), -3);
    EXPECT_EQ(textOf(selection.ranges()), "C6,1* C7,1");
}

TEST(Selection, FollowsATableThatShrinks) {
    Selection selection = selectionOf("C4,4 C8,2 R9,0 K7,0 T9,9", modelCell(8, 2));
    EXPECT_FALSE(selection.pullBackLines(Axis::Rows, 9));
    EXPECT_TRUE(selection.pullBackLines(Axis::Rows, 6));
    EXPECT_EQ(textOf(selection.ranges()), "R6,0* C4,4 K7,0 T9,9");
    EXPECT_EQ(selection.mainCell(), modelCell(6, 2));
    EXPECT_TRUE(selection.dropLinesFrom(Axis::Columns, 5));
    EXPECT_EQ(textOf(selection.ranges()), "R6,0* C4,4 T9,9");
    EXPECT_FALSE(selection.dropLinesFrom(Axis::Rows, 6));
}

TEST(Selection, InvertsLineByLine) {
    struct InvertCase {
        Axis axis;
        char const* ranges;
        int headers;
        char const* inverted;
    };
    // In a table of 4 rows and 3 columns.
    const InvertCase cases[] = {
        {Axis::Rows, "R1,0 R3,0", 1, "R2,0*"},
        {Axis::Rows, "C2,1", 1, "R1,0* C2,0 R3,0 C2,2"},
        {Axis::Rows, "C2,0 C2,1 C2,2", 2, "R3,0*"},
        {Axis::Rows, "R1,1", 0, "R0,0* C1,0 R2,0 R3,0"},
        {Axis::Rows, "K1,0", 1, "K0,1* K2,1"},
        {Axis::Rows, "K1,2", 1, "R1,0* C2,0 C3,0 C2,2 C3,2"},
        {Axis::Rows, "T0,0", 1, "C0,0*"},
        {Axis::Columns, "K1,0", 1, "K2,0*"},
        {Axis::Columns, "C1,2", 0, "K0,0* K1,0 C0,2 C2,2 C3,2"},
        {Axis::Columns, "R0,0 R2,0", 1, "R1,1* R3,1"},
        {Axis::Columns, "T0,0", 1, "C0,0*"},
    };
    for (InvertCase const& c : cases) {
        Selection selection = selectionOf(c.ranges, rangesFrom(c.ranges).front());
        if (c.axis == Axis::Rows)
            selection.invertSelectionByRowsHeaderExcluded({4, 3}, c.headers);
        else
            selection.invertSelectionByColumnsHeaderExcluded({4, 3}, c.headers);
        EXPECT_EQ(textOf(selection.ranges()), c.inverted) << c.ranges;
    }
}

TEST(Selection, AnInversionIsTheComplementOfHolesToo) {
    for (Axis axis : {Axis::Rows, Axis::Columns}) {
        Selection selection = selectionOf("T2,1 R1,0 K0,3", modelCell(2, 1));
        for (auto const& [row, col] :
             {std::pair(3, 3), std::pair(5, 6), std::pair(5, 7), std::pair(1, 4), std::pair(4, 0)})
            EXPECT_TRUE(selection.removeCellFromSelection(row, col));
        const auto before = cellsOf(selection.ranges(), view);
        std::set<std::pair<int, int>> expected;
        for (int row = axis == Axis::Rows ? 1 : 0; row < view.rows; ++row) {
            for (int col = axis == Axis::Columns ? 1 : 0; col < view.cols; ++col) {
                if (before.count({row, col}) == 0)
                    expected.emplace(row, col);
            }
        }
        if (axis == Axis::Rows)
            selection.invertSelectionByRowsHeaderExcluded(view, 1);
        else
            selection.invertSelectionByColumnsHeaderExcluded(view, 1);
        EXPECT_EQ(cellsOf(selection.ranges(), view), expected);
    }
}

TEST(Selection, ManyRangesAnswerAsFewDo) {
    RangeVector ranges = rangesFrom("R3,2 K6,4 T8,5");
    ranges[0].setExcludedCols({4});
    ranges[2].setExcludedCells({{9, 7}});
    for (int i = 0; i < 20; ++i)
        ranges.push_back(modelCell(i % 5, i % 3));
    Selection selection;
    selection.setSelection(modelCell(0, 0), ranges);
    for (int pass = 0; pass < 2; ++pass) {
        const auto cells = cellsOf(selection.ranges(), view);
        for (int row = 0; row < view.rows; ++row) {
            for (int col = 0; col < view.cols; ++col)
                EXPECT_EQ(selection.coversCell(row, col), cells.count({row, col}) > 0) << row << "," << col;
        }
        selection.removeCellFromSelection(9, 6);
        selection.moveSelectionRelative(1, 0, view);
    }
}

} // namespace
