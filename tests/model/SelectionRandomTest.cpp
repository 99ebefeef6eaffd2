// The selection kept as rectangles and runs, held against the rules written down for a list with an element a cell.

#include "model/Selection.h"
#include "tests/model/SelectionOracle.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace {

constexpr GridSize view{7, 6};

class Pair {
public:
    explicit Pair(unsigned seed) : random(seed) {}

    void step() {
        switch (number(9)) {
        case 0: set(); break;
        case 1:
        case 2: add(); break;
        case 3: remove(); break;
        case 4: move(); break;
        case 5: grow(); break;
        case 6: pullBack(); break;
        case 7: invert(); break;
        default: setMain(); break;
        }
        compare();
    }

private:
    int number(int below) { return int(random() % unsigned(below)); }

    RangeVector someRanges() {
        RangeVector ranges;
        for (int i = number(9); i > 0; --i) {
            Range range(static_cast<RangeType>(number(12) / 3), RangeIndexType::Model);
            if (range.type == RangeType::Table && number(2) == 0)
                range.type = RangeType::Cell;
            range.row = number(view.rows);
            range.col = number(view.cols);
            // A rectangle or a run of lines, in either direction.
            int const rows = range.type == RangeType::Cell || range.type == RangeType::Row ? 1 + number(3) : 1;
            int const cols = range.type == RangeType::Cell || range.type == RangeType::Column ? 1 + number(3) : 1;
            bool const backwards = number(2) == 0;
            for (int cell = 0; cell < rows * cols; ++cell) {
                int const at = backwards ? rows * cols - 1 - cell : cell;
                ranges.push_back(range);
                ranges.back().row = std::min(range.row + at / cols, view.rows - 1);
                ranges.back().col = std::min(range.col + at % cols, view.cols - 1);
            }
        }
        return ranges;
    }

    void set() {
        RangeVector const ranges = someRanges();
        oracle.main = modelCell(number(view.rows), number(view.cols));
        oracle.list = ranges;
        oracle.sanitize();
        selection.setSelection(oracle.main, ranges);
        said = "set " + textOf(ranges) + " main " + textOf(RangeVector{oracle.main});
    }
    void add() {
        RangeVector const ranges = someRanges();
        oracle.list.insert(oracle.list.end(), ranges.begin(), ranges.end());
        oracle.sanitize();
        selection.addCellsToSelection(ranges);
        said = "add " + textOf(ranges);
    }
    void remove() {
        int const row = number(view.rows);
        int const col = number(view.cols);
        EXPECT_EQ(selection.removeCellFromSelection(row, col), oracle.remove(row, col)) << row << "," << col;
        said = "remove " + std::to_string(row) + "," + std::to_string(col);
    }
    void move() {
        int const rows = number(5) - 2;
        int const cols = number(5) - 2;
        Range const before = selection.mainCell();
        selection.moveSelectionRelative(rows, cols, view);
        int const movedRows = selection.mainCell().row - before.row;
        int const movedCols = selection.mainCell().col - before.col;
        for (Range& range : oracle.list)
            std::tie(range.row, range.col) = std::pair(range.row + movedRows, range.col + movedCols);
        oracle.main.row += movedRows;
        oracle.main.col += movedCols;
        said = "move";
        // Ranges that have left the view would only blur what comes next.
        compare();
        set();
    }
    void grow() {
        bool const rows = number(2) == 0;
        selection.resetShiftSelectInfo();
        SelectionOracle const base = oracle;
        ShiftBounds const bounds{rows ? view.rows : view.cols,
                                 [this](int row, int col, Direction to) { return nextBlock(row, col, to); }};
        bool const byBlocks = number(2) == 0;
        bool const mixed = number(3) == 0;
        bool const on = number(2) == 0;
        std::vector<SelectionType> steps;
        said = (rows ? "rows " : "cols ") + textOf(base.ranges()) + " by";
        for (int key = 0; key < 3; ++key) {
            bool const forwards = mixed ? number(2) == 0 : on;
            bool const block = mixed ? number(2) == 0 : byBlocks;
            auto const direction = Direction(int(rows ? Direction::Up : Direction::Left) + int(forwards));
            auto const step = SelectionType(int(direction) + (block ? int(SelectionType::BlockUp) : 0));
            rows ? selection.selectUpOrDown(direction, block, false, nullptr, bounds)
                 : selection.selectLeftOrRight(direction, block, false, nullptr, bounds);
            bool const back = !steps.empty() && int(steps.back()) == (int(step) ^ 1);
            back ? steps.pop_back() : steps.push_back(step);
            said += " " + std::to_string(int(step));
            oracle = base;
            oracle.grow(rows ? &Range::row : &Range::col, steps, bounds);
        }
    }
    /// The next end of a run of filled cells, or the edge of the view.
    int nextBlock(int row, int col, Direction to) const {
        bool const rows = to == Direction::Up || to == Direction::Down;
        int const by = to == Direction::Down || to == Direction::Right ? 1 : -1;
        int const count = rows ? view.rows : view.cols;
        auto const isFilled = [&](int line) {
            int const number = rows ? line * view.cols + col : row * view.cols + line;
            return line >= 0 && line < count && (filled >> number) % 2 == 1;
        };
        int line = rows ? row : col;
        bool const toEnd = isFilled(line) && isFilled(line + by);
        for (line += by; line > 0 && line < count - 1; line += by) {
            if (toEnd ? !isFilled(line + by) : isFilled(line))
                break;
        }
        return std::clamp(line, 0, count - 1);
    }
    void pullBack() {
        bool const rows = number(2) == 0;
        int const last = number(rows ? view.rows : view.cols);
        RangeAxis const& names = rangeAxis(rows ? Axis::Rows : Axis::Columns);
        said = (rows ? "rows to " : "cols to ") + std::to_string(last) + " from " + textOf(oracle.ranges());
        EXPECT_EQ(selection.pullBackLines(rows ? Axis::Rows : Axis::Columns, last),
                  oracle.pullBack(names.line, names.lineType, last))
            << said;
    }
    void invert() {
        bool const rows = number(2) == 0;
        int const header = number(3);
        said =
            (rows ? "rows left of " : "cols left of ") + textOf(oracle.ranges()) + " below " + std::to_string(header);
        oracle.invert(rows ? Axis::Rows : Axis::Columns, view, header);
        rows ? selection.invertSelectionByRowsHeaderExcluded(view, header)
             : selection.invertSelectionByColumnsHeaderExcluded(view, header);
    }
    void setMain() {
        oracle.main = modelCell(number(view.rows), number(view.cols));
        oracle.sanitize();
        selection.setMainCell(oracle.main);
        said = "main";
    }

    void compare() {
        SCOPED_TRACE(said + "\n" + textOf(selection.ranges()) + "\n" + textOf(oracle.ranges()));
        ASSERT_EQ(selection.getSelectionSize(view), oracle.size(view));
        RangeVector const expected = oracle.ranges();
        RangeVector const& ranges = selection.ranges();
        ASSERT_EQ(sortedText(ranges), sortedText(expected));
        ASSERT_EQ(cellsOf(ranges, view), cellsOf(expected, view));
        for (int row = 0; row < view.rows; ++row) {
            for (int col = 0; col < view.cols; ++col) {
                bool const covered = std::any_of(expected.begin(), expected.end(),
                                                 [&](Range const& range) { return rangeCoversCell(range, row, col); });
                ASSERT_EQ(selection.coversCell(row, col), covered) << row << "," << col;
                ASSERT_EQ(selection.cellInSelection(modelCell(row, col)), expected.containsRange(modelCell(row, col)));
            }
        }
        for (Range const& range : ranges)
            ASSERT_EQ(range.hasMainCell, range.containsRange(oracle.main));
        qint64 cells = 0;
        for (Range const& range : expected)
            cells += qint64(range.type == RangeType::Row || range.type == RangeType::Cell ? 1 : view.rows - range.row) *
                     (range.type == RangeType::Column || range.type == RangeType::Cell ? 1 : view.cols - range.col);
        ASSERT_EQ(selection.numSelectedCells(view), cells);
    }

    /// Different ranges with the same start come in the order of their types.
    static std::string sortedText(RangeVector ranges) {
        for (Range& range : ranges)
            range.hasMainCell = false;
        std::stable_sort(ranges.begin(), ranges.end(), [](Range const& a, Range const& b) {
            return std::tuple(a.row, a.col, a.type) < std::tuple(b.row, b.col, b.type);
        });
        return textOf(ranges);
    }

    std::mt19937 random;
    std::uint64_t filled = (std::uint64_t(random()) << 32) | random(); ///< cells with content, by bit
    Selection selection;
    SelectionOracle oracle{{modelCell(0, 0)}, modelCell(0, 0)};
    std::string said;

public:
    bool start() {
        set();
        compare(); // whoever sets a selection asks for its size, which puts the list in order
        return true;
    }
};

TEST(SelectionAsRectangles, FollowsTheRulesOfTheList) {
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE(seed);
        Pair pair(seed);
        pair.start();
        for (int step = 0; step < 25 && !testing::Test::HasFatalFailure(); ++step)
            pair.step();
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(SelectionAsRectangles, CostsByRectanglesHoweverManyCellsThereAre) {
    constexpr int rows = 1'000'000;
    GridSize const grid{rows, 12};
    Selection selection;
    selection.setSelection(modelCell(0, 3), RangeSet(CellRegion({0, 3, rows - 1, 3})));
    ShiftBounds const bounds{12, nullptr};
    for (int key = 0; key < 4; ++key)
        selection.selectLeftOrRight(Direction::Right, false, false, nullptr, bounds);
    selection.moveSelectionRelative(0, 1, grid);
    EXPECT_EQ(selection.set().cells().rects(), (std::vector<CellRect>{{0, 4, rows - 1, 8}}));
    EXPECT_EQ(selection.getSelectionSize(grid), (RangeSize{5 * rows, 0, 0, rows, 5}));
    selection.addCellsToSelection(RangeSet::ofLines(Axis::Rows, 10, rows - 1));
    EXPECT_EQ(selection.set().lines().size(), 1u);
    EXPECT_EQ(selection.set().cells().rects(), (std::vector<CellRect>{{0, 4, 9, 8}}));
    selection.invertSelectionByRowsHeaderExcluded(grid, 1);
    EXPECT_EQ(selection.set().cells().rects(), (std::vector<CellRect>{{1, 0, 9, 3}, {1, 9, 9, 11}}));
}

} // namespace
