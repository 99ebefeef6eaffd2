#include "model/Selection.h"

#include "model/RangeAxis.h"
#include "model/RangeOrder.h"
#include "model/SelectionInversion.h"
#include "model/SelectionRules.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace {

/// The main cell that a flagged range names, with its offsets counted from the range's start or from 0.
Range mainCellOf(Range const& range, bool offsetsFromStart) {
    if (range.type == RangeType::Cell)
        return range;
    const int originRow = offsetsFromStart ? range.row : 0;
    const int originCol = offsetsFromStart ? range.col : 0;
    Range cell(-1, -1, RangeIndexType::Model);
    if (range.type == RangeType::Row) {
        cell.row = range.row;
        cell.col = originCol + range.mainIndex;
    } else if (range.type == RangeType::Column) {
        cell.row = originRow + range.mainIndex;
        cell.col = range.col;
    } else if (range.type == RangeType::Table) {
        cell.row = originRow + range.mainRow;
        cell.col = originCol + range.mainCol;
    }
    cell.value = valueAt(range, cell.row, cell.col, false);
    cell.oldValue = valueAt(range, cell.row, cell.col, true);
    return cell;
}

bool isLineOrCell(Range const& range, RangeAxis const& axis) {
    return range.type == RangeType::Cell || range.type == axis.lineType;
}

/// The part of a wanted move that keeps `line` within `count` lines.
int withinLines(int wanted, int line, int count) {
    return wanted < 0 ? std::max(wanted, -line) : std::min(wanted, std::max(count - line - 1, 0));
}

} // namespace

// What is selected.

bool Selection::coversCell(int row, int col) const {
    return membership.coversCell(selection, row, col);
}

bool Selection::isSelectionMultiCell() const {
    return selection.size() != 1 || selection.front().type != RangeType::Cell;
}

bool Selection::hasLine(Axis axis, int line) const {
    RangeAxis const& names = rangeAxis(axis);
    return std::any_of(selection.begin(), selection.end(),
                       [&](Range const& range) { return range.type == names.lineType && range.*names.line == line; });
}

qint64 Selection::numSelectedCells(GridSize view) const {
    return numCellsInView(selection, view);
}

RangeSize Selection::getSelectionSize(GridSize view) {
    sortByRowThenColumn(editRanges());
    return selectionSize(selection, view);
}

// Housekeeping.

RangeVector& Selection::editRanges() {
    membership.invalidate();
    return selection;
}

void Selection::sanitizeSelection() {
    sanitizeRanges(editRanges(), main);
}

bool Selection::pullBackLines(Axis axis, int last) {
    RangeAxis const& names = rangeAxis(axis);
    bool moved = false;
    const auto pullBack = [&](Range& range) {
        if (range.*names.line > last) {
            range.*names.line = last;
            moved = true;
        }
    };
    for (Range& range : editRanges()) {
        if (isLineOrCell(range, names))
            pullBack(range);
    }
    pullBack(main);
    if (moved)
        sanitizeSelection();
    return moved;
}

bool Selection::dropLinesFrom(Axis axis, int count) {
    RangeAxis const& names = rangeAxis(axis);
    std::erase_if(editRanges(),
                  [&](Range const& range) { return isLineOrCell(range, names) && range.*names.line >= count; });
    return std::any_of(selection.begin(), selection.end(), [](Range const& range) { return range.hasMainCell; });
}

SelectionChange Selection::sanitizeAndReport() {
    sanitizeSelection();
    return {true, true, true, isSelectionMultiCell()};
}

// Setting.

SelectionChange Selection::setSelection(Range& range) {
    shiftRecord.reset();
    range.hasMainCell = true;
    Range cell = mainCellOf(range, true);
    if (cell.row == -1 || cell.col == -1)
        throw std::runtime_error("Invalid main range_model.");
    main = std::move(cell);
    // The range may be an element of the list that it replaces.
    RangeVector chosen{range};
    editRanges() = std::move(chosen);
    SelectionChange change = sanitizeAndReport();
    // A single range of any type ends the state of a multiple selection.
    change.multiCell = false;
    return change;
}

SelectionChange Selection::setSelection(Range const& mainRange, RangeVector ranges) {
    shiftRecord.reset();
    main = mainRange;
    editRanges() = std::move(ranges);
    return sanitizeAndReport();
}

SelectionChange Selection::setSelection(RangeVector ranges, bool resetShift) {
    const auto flagged =
        std::find_if(ranges.begin(), ranges.end(), [](Range const& range) { return range.hasMainCell; });
    if (flagged == ranges.end())
        return setSelection(Range(0, 0, RangeIndexType::Model), std::move(ranges));
    if (resetShift)
        shiftRecord.reset();
    main = mainCellOf(*flagged, false);
    std::for_each(flagged + 1, ranges.end(), [](Range& range) { range.hasMainCell = false; });
    editRanges() = std::move(ranges);
    return sanitizeAndReport();
}

SelectionChange Selection::setMainCell(Range const& range) {
    shiftRecord.reset();
    main = range;
    return sanitizeAndReport();
}

SelectionChange Selection::clearSelection(Range const& range) {
    if (range.row != -1 && range.col != -1)
        main = range;
    editRanges() = RangeVector();
    SelectionChange change;
    change.mainCell = true;
    change.ranges = true;
    return change;
}

RangeVector Selection::withAbsoluteMainCell(RangeVector ranges) {
    for (Range& range : ranges) {
        if (!range.hasMainCell)
            continue;
        if (range.type == RangeType::Row) {
            range.mainIndex += range.col;
        } else if (range.type == RangeType::Column) {
            range.mainIndex += range.row;
        } else if (range.type == RangeType::Table) {
            range.mainRow += range.row;
            range.mainCol += range.col;
        }
    }
    return ranges;
}

// Adding and taking out.

SelectionChange Selection::addCellToSelection(Range const& range) {
    return addCellsToSelection(RangeVector{range});
}

SelectionChange Selection::addCellsToSelection(RangeVector ranges) {
    shiftRecord.reset();
    editRanges().insert(selection.end(), std::make_move_iterator(ranges.begin()),
                        std::make_move_iterator(ranges.end()));
    sanitizeSelection();
    SelectionChange change;
    change.size = true;
    change.multiCell = isSelectionMultiCell();
    return change;
}

namespace {

/// Takes a position out of a whole line. Nothing for a line that does not hold it, else whether it was in.
std::optional<bool> excludeFromLine(Range& range, RangeAxis const& axis, int line, int position) {
    if (range.type != axis.lineType || range.*axis.line != line || range.*axis.position > position)
        return std::nullopt;
    std::vector<int>& excluded = range.*axis.excludedPositions;
    if (std::find(excluded.begin(), excluded.end(), position) != excluded.end())
        return false;
    excluded.push_back(position);
    return true;
}

/// The same for a table. A pair with -1 stands for every row or column.
std::optional<bool> excludeFromTable(Range& range, int row, int col) {
    if (range.type != RangeType::Table || range.row > row || range.col > col)
        return std::nullopt;
    const auto names = [&](std::pair<int, int> const& cell) {
        return (cell.first == row || cell.first == -1) && (cell.second == col || cell.second == -1);
    };
    std::vector<std::pair<int, int>>& excluded = range.excludedCells;
    if (!rangeCoversCell(range, row, col) || std::any_of(excluded.begin(), excluded.end(), names))
        return false;
    excluded.emplace_back(row, col);
    return true;
}

} // namespace

bool Selection::removeCellFromSelection(int row, int col) {
    editRanges();
    const auto takeOut = [&]() -> bool {
        for (auto range = selection.begin(); range != selection.end(); ++range) {
            if (range->type == RangeType::Cell && range->row == row && range->col == col) {
                if (range->hasMainCell)
                    return false;
                selection.erase(range);
                return true;
            }
            std::optional<bool> excluded = excludeFromLine(*range, rowsAxis, row, col);
            if (!excluded)
                excluded = excludeFromLine(*range, colsAxis, col, row);
            if (!excluded)
                excluded = excludeFromTable(*range, row, col);
            if (excluded)
                return *excluded;
        }
        return false;
    };
    const bool removed = takeOut();
    // Steps replayed from the base of before would bring the cell back.
    if (removed)
        shiftRecord.reset();
    return removed;
}

// Moving.

SelectionChange Selection::moveSelectionRelative(int rows, int cols, GridSize view) {
    const int rowShift = withinLines(rows, main.row, view.rows);
    const int colShift = withinLines(cols, main.col, view.cols);
    const auto move = [&](Range& range) {
        range.row += rowShift;
        range.col += colShift;
    };
    for (Range& range : editRanges())
        move(range);
    move(main);
    // Steps replayed from the base of before would jump back to it.
    shiftRecord.reset();
    SelectionChange change;
    change.mainCell = true;
    change.ranges = true;
    change.size = true; // no other size, but other cells: what is told about them is told anew
    return change;
}

SelectionChange Selection::moveAlong(Axis axis, RangeVector ranges, int lines) {
    int Range::*const line = rangeAxis(axis).line;
    Range movedMain = main;
    movedMain.*line += lines;
    for (Range& range : ranges)
        range.*line += lines;
    return setSelection(movedMain, std::move(ranges));
}

SelectionChange Selection::moveSelectionVertically(RangeVector const& ranges, int rows) {
    return moveAlong(Axis::Rows, ranges, rows);
}

SelectionChange Selection::moveSelectionHorizontally(RangeVector const& ranges, int cols) {
    return moveAlong(Axis::Columns, ranges, cols);
}

// Growing.

std::optional<SelectionChange> Selection::shiftAlong(Axis axis, Direction direction, bool toBlockEdge,
                                                     bool onlyTakeBack, bool* changed, ShiftBounds const& bounds) {
    const bool vertical = direction == Direction::Up || direction == Direction::Down;
    if (vertical != (axis == Axis::Rows) ||
        !shiftRecord.addStep(selection, direction, toBlockEdge, onlyTakeBack, changed))
        return std::nullopt;
    return replayAlong(axis, shiftRecord.baseSelection(), shiftRecord.steps(), bounds);
}

SelectionChange Selection::replayAlong(Axis axis, RangeVector const& base, std::vector<SelectionType> const& steps,
                                       ShiftBounds const& bounds) {
    // A sanitized base counts its main cell from the start of the range, which the setting does not.
    return setSelection(SelectionShift::replay(withAbsoluteMainCell(base), steps, axis, bounds), false);
}

std::optional<SelectionChange> Selection::selectUpOrDown(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                         bool* changed, ShiftBounds const& rows) {
    return shiftAlong(Axis::Rows, direction, toBlockEdge, onlyTakeBack, changed, rows);
}

std::optional<SelectionChange> Selection::selectLeftOrRight(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                            bool* changed, ShiftBounds const& cols) {
    return shiftAlong(Axis::Columns, direction, toBlockEdge, onlyTakeBack, changed, cols);
}

SelectionChange Selection::selectUpOrDown(RangeVector const& base, std::vector<SelectionType> const& steps,
                                          ShiftBounds const& rows) {
    return replayAlong(Axis::Rows, base, steps, rows);
}

SelectionChange Selection::selectLeftOrRight(RangeVector const& base, std::vector<SelectionType> const& steps,
                                             ShiftBounds const& cols) {
    return replayAlong(Axis::Columns, base, steps, cols);
}

// Inverting.

SelectionChange Selection::invertAlong(Axis axis, GridSize data, int headerLines) {
    RangeVector left = invertRanges(selection, axis, data, headerLines);
    if (!left.empty())
        return setSelection(std::move(left), true);
    Range firstCell(0, 0, RangeIndexType::Model);
    return setSelection(firstCell);
}

SelectionChange Selection::invertSelectionByRowsHeaderExcluded(GridSize data, int numVisibleHeaderRows) {
    return invertAlong(Axis::Rows, data, numVisibleHeaderRows);
}

SelectionChange Selection::invertSelectionByColumnsHeaderExcluded(GridSize data, int numHeaderCols) {
    return invertAlong(Axis::Columns, data, numHeaderCols);
}

// The rectangle of a drag.

void Selection::setPendingCorners(Range const& start, Range const& end) {
    cornerStart = start;
    cornerEnd = end;
}

std::optional<RangeSize> Selection::setPendingSelectionCorner(Range const& corner, bool isFirst, GridSize view) {
    if (isFirst) {
        cornerStart = corner;
        cornerEnd.row = -1;
        cornerEnd.col = -1;
        return getSelectionSize(view);
    }
    if (corner == cornerEnd)
        return std::nullopt;
    cornerEnd = corner;
    const RangeSize rectangle = rectangleSize(cornerStart, cornerEnd);
    if (rectangle.height == 1 && rectangle.width == 1 && getSelectionSize(view).cells == 1)
        return RangeSize{.cells = 1};
    return rectangle;
}
