#pragma once

#include "core/CellRegion.h"
#include "core/Enumerations.h"
#include "core/RangeVector.h"
#include "model/GridSize.h"

#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

/// What a RangeSet keeps beside single cells: neighbouring whole rows or columns that start at the same position, or
/// one range alone, which is a Table or a line with exclusions or an end of its own.
struct LineRun {
    Range range; ///< the first one
    int count = 1;
    bool behindCell = false; ///< of a Table: the list has a Cell at the same start, in front of it

    /// Along the axis of a Row or Column, or that of rows for a Table.
    int firstLine() const { return range.type == RangeType::Column ? range.col : range.row; }
    int lastLine() const { return firstLine() + count - 1; }
    int position() const { return range.type == RangeType::Column ? range.row : range.col; }
    /// Whether these are whole lines without exclusions or ends of their own.
    bool isPlain() const;
    bool holdsLine(int line) const { return line >= firstLine() && line <= lastLine(); }
    /// One of the ranges, alone.
    Range at(int line) const;
    LineRun part(int first, int last) const;
};

/// A list of ranges without contents, as rectangles of cells and runs of lines, so that it costs by rectangles and not
/// by cells: what a selection holds and an undo command keeps. The list form is made when it is asked for. Cells are
/// held once each, and those that start a whole line given before them belong to that line; the order of lines is
/// kept. All ranges are of one index space.
class RangeSet {
public:
    /// The orders of the list form. Where a Cell and a line start at the same place the Cell comes first.
    enum class Order { ByRow, ByColumn };

    RangeSet() = default;
    /// The first flagged range gives the main cell, its offsets counted from its start.
    RangeSet(RangeVector const& ranges);
    RangeSet(std::initializer_list<Range> ranges) : RangeSet(RangeVector(ranges)) {}
    explicit RangeSet(CellRegion cells) : region(std::move(cells)) {}
    /// Whole lines from `start` on.
    static RangeSet ofLines(Axis axis, int first, int last, int start = 0);

    bool isEmpty() const { return region.isEmpty() && runs.empty(); }
    bool isSingleCell() const { return runs.empty() && region.count() == 1; }
    CellRegion const& cells() const { return region; }
    std::vector<LineRun> const& lines() const { return runs; }
    RangeIndexType getIndexType() const { return indexType; }
    /// Row and column.
    std::optional<std::pair<int, int>> const& mainCell() const { return main; }
    void setMainCell(int row, int col) { main = {row, col}; }

    /// Adds behind what is there.
    void add(RangeSet const& other);
    void add(RangeVector const& ranges);
    void addCells(CellRegion const& cells);
    void addLines(LineRun const& lines);
    void setCells(CellRegion cells) { region = std::move(cells); }
    std::vector<LineRun>& editLines();

    /// Whether a range holds the cell, exclusions regarded and ends not.
    bool covers(int row, int col) const;
    /// Whether one of the ranges contains `range`, exclusions not regarded.
    bool contains(Range const& range) const;
    bool hasLine(Axis axis, int line) const;
    /// All cells: lines reach as far as the grid. Ends are not regarded.
    CellRegion coverage(GridSize grid, bool withExclusions) const;
    /// The rows (or columns) of cells and lines, ascending; ranges across them reach all from their start to the last
    /// of `count` lines.
    std::vector<int> touchedLines(Axis axis, int count) const;
    /// The rows (or columns) of cells and lines along the axis alone, as runs from first to last, ascending.
    std::vector<std::pair<int, int>> startLines(Axis axis) const;
    /// Whether a range reaches across all lines of the axis.
    bool hasAcross(Axis axis) const;
    /// The smallest start; INT_MAX if empty.
    int firstStart(Axis axis) const;
    /// The largest start of cells and lines along the axis; 0 if there is none.
    int lastStart(Axis axis) const;

    /// With all starts moved. Exclusions stay where they are.
    RangeSet moved(int rows, int cols) const;
    /// The same, but no start becomes negative.
    RangeSet movedInside(int rows, int cols) const;
    /// The list. `main` flags the ranges that contain it.
    RangeVector ranges(Order order, std::optional<std::pair<int, int>> main) const;
    /// In order of rows, with the set's own main cell.
    RangeVector ranges() const { return ranges(Order::ByRow, main); }

private:
    /// For look-ups among many lines: by first line, with the largest last line up to each.
    struct LineIndex {
        std::vector<std::size_t> order;
        std::vector<int> reach;
    };

    void append(LineRun run);
    bool lineCovers(LineRun const& run, int row, int col) const;
    bool anyLineAt(LineIndex const& index, int line, int row, int col) const;
    void buildIndex() const;
    CellRegion lineStarts() const;

    CellRegion region;
    std::vector<LineRun> runs;
    RangeIndexType indexType = RangeIndexType::Model;
    std::optional<std::pair<int, int>> main;
    mutable bool indexed = false;
    mutable LineIndex rowIndex;
    mutable LineIndex colIndex;
    mutable std::vector<std::size_t> tables;
};
