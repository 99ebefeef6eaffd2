#include "model/Selection.h"
#include "tests/model/SelectionText.h"

#include <random>
#include <stdexcept>

namespace {

constexpr GridSize grid{6, 6};

/// What a selection makes of a list with that main cell.
void sanitizeList(RangeVector& ranges, Range& mainCell) {
    Selection selection;
    selection.setSelection(mainCell, ranges);
    ranges = selection.ranges();
    mainCell = selection.mainCell();
}

struct RuleCase {
    char const* what;
    char const* ranges;
    Range mainCell;
    char const* sanitized;
};

TEST(SelectionRules, BringAListInForm) {
    const RuleCase cases[] = {
        {"nothing selected is the main cell", "", modelCell(2, 3), "C2,3*"},
        {"repetition goes, columns order the rest", "C1,2 C0,3 C1,2 C4,0", modelCell(1, 2), "C4,0 C1,2* C0,3"},
        {"a main cell outside is added", "C1,1", modelCell(0, 0), "C1,1 C0,0*"},
        {"a row holds the cells behind its start", "R3,2 C3,1 C3,2 C3,5 C4,2", modelCell(4, 2), "C3,1 R3,2 C4,2*"},
        {"a column holds the cells below its start", "K3,2 C1,3 C2,3 C5,3", modelCell(5, 3), "C1,3 K3,2*"},
        {"a row and a column stay two ranges", "R2,0 K2,0", modelCell(2, 2), "R2,0* K2,0*"},
    };
    for (RuleCase const& c : cases) {
        RangeVector ranges = rangesFrom(c.ranges);
        Range mainCell = c.mainCell;
        sanitizeList(ranges, mainCell);
        EXPECT_EQ(textOf(ranges), c.sanitized) << c.what;
        EXPECT_TRUE(mainCell.hasMainCell) << c.what;
    }
}

TEST(SelectionRules, ATableThatStartsTheListAbsorbsWhatItHolds) {
    RangeVector ranges = rangesFrom("T0,1 C3,3 C2,2 R0,2 R2,2 K1,0 K4,0 C5,0");
    ranges[0].setExcludedCells({{5, 5}, {2, 2}, {0, 0}, {4, 3}, {0, 4}});
    ranges[0].setExcludedRows({4});
    Range mainCell = modelCell(1, 1);
    sanitizeList(ranges, mainCell);
    // The pairs outside or excluded anyway are gone, the cell (2, 2) is back, and the row with a hole filled stays.
    EXPECT_EQ(textOf(ranges), "C5,0 T0,1* K1,0* R0,2 R2,2 K4,0");
    const std::vector<std::pair<int, int>> left{{0, 4}, {5, 5}};
    EXPECT_EQ(ranges[1].excludedCells(), left);
}

TEST(SelectionRules, ACellTakenOutOfARowCannotBePutBack) {
    for (char const* text : {"R2,0 C2,3", "K2,0 C3,2"}) {
        RangeVector ranges = rangesFrom(text);
        ranges[0].setExcludedCols({3});
        ranges[0].setExcludedRows({3});
        Range mainCell = modelCell(2, 2);
        sanitizeList(ranges, mainCell);
        EXPECT_EQ(ranges.size(), 1u) << text;
        EXPECT_FALSE(rangeCoversCell(ranges[0], ranges[0].row + 3, ranges[0].col + 3)) << text;
    }
}

TEST(SelectionRules, TellWhereInARangeTheMainCellLies) {
    RangeVector ranges = rangesFrom("T1,1 R4,2 K5,3");
    Range mainCell = modelCell(4, 5);
    sanitizeList(ranges, mainCell);
    for (Range const& range : ranges) {
        EXPECT_TRUE(range.hasMainCell);
        if (range.type == RangeType::Table)
            EXPECT_EQ(std::pair(range.mainRow, range.mainCol), std::pair(3, 4));
        else
            EXPECT_EQ(range.mainIndex, range.type == RangeType::Row ? 3 : 1);
    }
}

TEST(SelectionRules, RefuseAMainCellThatIsNone) {
    RangeVector ranges = rangesFrom("C0,0");
    Range mainCell = modelCell(3, -1);
    try {
        sanitizeList(ranges, mainCell);
        FAIL() << "no main cell, no exception";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "Main cell not a single cell.");
    }
}

/// Ranges at random over the grid, some of them with exclusions.
RangeVector randomRanges(std::mt19937& random) {
    const auto number = [&](int below) { return int(random() % unsigned(below)); };
    RangeVector ranges;
    for (int i = number(12); i > 0; --i) {
        Range range(static_cast<RangeType>(number(4)), RangeIndexType::Model);
        range.row = number(grid.rows);
        range.col = number(grid.cols);
        const bool excluding = number(4) == 0;
        if (excluding && range.type == RangeType::Row)
            range.setExcludedCols({range.col + number(3)});
        else if (excluding && range.type == RangeType::Column)
            range.setExcludedRows({range.row + number(3)});
        else if (excluding && range.type == RangeType::Table)
            range.setExcludedCells({{range.row + number(3), range.col}, {range.row, range.col + number(3)}});
        ranges.push_back(range);
    }
    return ranges;
}

TEST(SelectionRules, LoseOnlyExcludedCellsAndGainOnlyTheMainCell) {
    std::mt19937 random(20240607);
    for (int round = 0; round < 3000; ++round) {
        const RangeVector before = randomRanges(random);
        Range mainCell = modelCell(int(random() % 6), int(random() % 6));
        RangeVector after = before;
        sanitizeList(after, mainCell);
        SCOPED_TRACE(textOf(before) + " -> " + textOf(after));
        EXPECT_TRUE(after.containsRange(mainCell));
        EXPECT_TRUE(std::any_of(after.begin(), after.end(), [](Range const& range) { return range.hasMainCell; }));

        const auto had = cellsOf(before, grid);
        const auto has = cellsOf(after, grid);
        for (auto const& cell : has)
            EXPECT_TRUE(had.count(cell) > 0 || cell == std::pair(mainCell.row, mainCell.col));
        for (auto const& cell : had) {
            // Only exclusions lose a cell: what was added over them is dropped, or merged into the excluding range.
            const bool excluded = std::any_of(before.begin(), before.end(), [&](Range const& range) {
                return range.containsRange(modelCell(cell.first, cell.second)) &&
                       !rangeCoversCell(range, cell.first, cell.second);
            });
            EXPECT_TRUE(excluded || has.count(cell) > 0) << cell.first << "," << cell.second;
        }

        RangeVector again = after;
        sanitizeList(again, mainCell);
        EXPECT_EQ(cellsOf(again, grid), has);
        EXPECT_LE(again.size(), after.size());
    }
}

} // namespace
