#include "model/Selection.h"

#include "model/RangeAxis.h"
#include "model/SelectionGrowth.h"
#include "model/SelectionInversion.h"
#include "model/SelectionMembership.h"
#include "model/SelectionRules.h"

#include <algorithm>
#include <climits>
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
    cell.setValue(valueAt(range, cell.row, cell.col, false));
    cell.setOldValue(valueAt(range, cell.row, cell.col, true));
    return cell;
}

/// The part of a wanted move that keeps `line` within `count` lines.
int withinLines(int wanted, int line, int count) {
    return wanted < 0 ? std::max(wanted, -line) : std::min(wanted, std::max(count - line - 1, 0));
}

} // namespace

// What is selected.

qint64 Selection::numSelectedCells(GridSize view) const {
    return numCellsInView(selection, view);
}

RangeSize Selection::getSelectionSize(GridSize view) {
    if (order != RangeSet::Order::ByRow || mainCellLast)
        forgetList();
    order = RangeSet::Order::ByRow;
    mainCellLast = false;
    return selectionSize(selection, view);
}

RangeVector const& Selection::ranges() const {
    if (std::exchange(listed, true))
        return list;
    list = selection.ranges(order, selection.mainCell());
    if (mainCellLast) {
        const auto added = std::find(list.begin(), list.end(), main);
        std::rotate(added, added + 1, list.end());
    }
    return list;
}

/// The list form can be large, so its memory is given back.
void Selection::forgetList() {
    listed = false;
    RangeVector().swap(list);
}

// Housekeeping.

void Selection::sortByColumns() {
    if (order != RangeSet::Order::ByColumn || mainCellLast)
        forgetList();
    order = RangeSet::Order::ByColumn;
    mainCellLast = false;
}

void Selection::sanitizeSelection() {
    forgetList();
    const bool added = sanitizeRanges(selection, main);
    order = RangeSet::Order::ByColumn;
    mainCellLast = added;
    selection.setMainCell(main.row, main.col);
}

namespace {

/// Adds lines of another set that keep their place in the list: only a table that was behind the cell at its start is
/// behind the one that is there now.
void addKept(RangeSet& ranges, LineRun const& run, RangeSet const& from) {
    ranges.addLines(run);
    ranges.editLines().back().behindCell = run.behindCell && from.cells().contains(run.range.row, run.range.col);
}

/// The starts on line `last` of whole rows and columns that come before each cell that is pulled back to the same
/// place, which then belongs to them.
CellRegion startsAhead(RangeSet const& ranges, Axis axis, int last) {
    RangeAxis const& names = rangeAxis(axis);
    const auto rect = [&](int first, int end, int from, int to) {
        return axis == Axis::Rows ? CellRect{first, from, end, to} : CellRect{from, first, to, end};
    };
    const CellRegion cells = ranges.cells() & CellRegion(rect(last, INT_MAX, INT_MIN, INT_MAX));
    std::vector<CellRect> starts;
    for (LineRun const& run : ranges.lines()) {
        if (run.range.type == names.crossType && run.range.*names.line == last)
            starts.push_back(rect(last, last, run.firstLine(), run.lastLine()));
        if (run.range.type != names.lineType || run.lastLine() < last)
            continue;
        const int position = run.position();
        const CellRegion before(rect(last, std::max(last, run.firstLine()), position, position));
        if ((cells & before).isEmpty())
            starts.push_back(rect(last, last, position, position));
    }
    return CellRegion::ofRects(starts) - cells;
}

} // namespace

bool Selection::pullBackLines(Axis axis, int last) {
    RangeAxis const& names = rangeAxis(axis);
    const bool rows = axis == Axis::Rows;
    bool moved = false;
    RangeSet pulled;
    const CellRect inside =
        rows ? CellRect{INT_MIN, INT_MIN, last, INT_MAX} : CellRect{INT_MIN, INT_MIN, INT_MAX, last};
    pulled.setCells(selection.cells().clampedTo(inside));
    moved = !(pulled.cells() == selection.cells());
    if (moved)
        pulled.setCells(pulled.cells() - startsAhead(selection, axis, last));
    std::vector<LineRun> behind; // come after what starts on the last line already
    for (LineRun const& run : selection.lines()) {
        const bool reaches = run.range.type == names.lineType && run.lastLine() > last;
        moved = moved || reaches;
        if (reaches && run.firstLine() > last)
            behind.push_back(run);
        else
            addKept(pulled, reaches ? run.part(run.firstLine(), last) : run, selection);
    }
    std::stable_sort(behind.begin(), behind.end(),
                     [](LineRun const& a, LineRun const& b) { return a.firstLine() < b.firstLine(); });
    for (LineRun const& run : behind)
        pulled.addLines(run.part(last, last));
    if (main.*names.line > last) {
        main.*names.line = last;
        moved = true;
    }
    if (moved) {
        selection = std::move(pulled);
        sanitizeSelection();
    }
    return moved;
}

bool Selection::dropLinesFrom(Axis axis, int count) {
    RangeAxis const& names = rangeAxis(axis);
    const CellRect behind =
        axis == Axis::Rows ? CellRect{count, INT_MIN, INT_MAX, INT_MAX} : CellRect{INT_MIN, count, INT_MAX, INT_MAX};
    RangeSet left(selection.cells() - CellRegion(behind));
    for (LineRun const& run : selection.lines()) {
        if (run.range.type != names.lineType || run.lastLine() < count)
            addKept(left, run, selection);
        else if (run.firstLine() < count)
            left.addLines(run.part(run.firstLine(), count - 1));
    }
    if (left.contains(main))
        left.setMainCell(main.row, main.col);
    forgetList();
    selection = std::move(left);
    return selection.mainCell().has_value();
}

SelectionChange Selection::sanitizeAndReport() {
    sanitizeSelection();
    return {true, true, true, isSelectionMultiCell()};
}

SelectionChange Selection::replaceBy(RangeSet ranges, Range mainRange) {
    main = std::move(mainRange);
    selection = std::move(ranges);
    return sanitizeAndReport();
}

// Setting.

SelectionChange Selection::setSelection(Range& range) {
    shiftRecord.reset();
    range.hasMainCell = true;
    Range cell = mainCellOf(range, true);
    if (cell.row == -1 || cell.col == -1)
        throw std::runtime_error("Invalid main range_model.");
    SelectionChange change = replaceBy(RangeVector{range}, std::move(cell));
    // A single range of any type ends the state of a multiple selection.
    change.multiCell = false;
    return change;
}

SelectionChange Selection::setSelection(Range const& mainRange, RangeSet ranges) {
    shiftRecord.reset();
    return replaceBy(std::move(ranges), mainRange);
}

SelectionChange Selection::setSelection(RangeVector const& ranges, bool resetShift) {
    const auto flagged =
        std::find_if(ranges.begin(), ranges.end(), [](Range const& range) { return range.hasMainCell; });
    if (flagged == ranges.end())
        return setSelection(Range(0, 0, RangeIndexType::Model), ranges);
    if (resetShift)
        shiftRecord.reset();
    return replaceBy(ranges, mainCellOf(*flagged, false));
}

SelectionChange Selection::setMainCell(Range const& range) {
    shiftRecord.reset();
    main = range;
    return sanitizeAndReport();
}

SelectionChange Selection::clearSelection(Range const& range) {
    if (range.row != -1 && range.col != -1)
        main = range;
    forgetList();
    selection = RangeSet();
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

SelectionChange Selection::addCellsToSelection(RangeSet const& ranges) {
    shiftRecord.reset();
    selection.add(ranges);
    sanitizeSelection();
    SelectionChange change;
    change.size = true;
    change.multiCell = isSelectionMultiCell();
    return change;
}

namespace {

/// Takes a position out of a whole line. Nothing for a range that does not hold it, else whether it was in.
std::optional<bool> excludeFromLine(Range& range, RangeAxis const& axis, int line, int position) {
    if (range.type != axis.lineType || range.*axis.line != line || range.*axis.position > position)
        return std::nullopt;
    std::vector<int> excluded = (range.*axis.excludedPositions)();
    if (std::find(excluded.begin(), excluded.end(), position) != excluded.end())
        return false;
    excluded.push_back(position);
    (range.*axis.setExcludedPositions)(std::move(excluded));
    return true;
}

/// The same for a table. A pair with -1 stands for every row or column.
std::optional<bool> excludeFromTable(Range& range, int row, int col) {
    if (range.type != RangeType::Table || range.row > row || range.col > col)
        return std::nullopt;
    const auto names = [&](std::pair<int, int> const& cell) {
        return (cell.first == row || cell.first == -1) && (cell.second == col || cell.second == -1);
    };
    std::vector<std::pair<int, int>> excluded = range.excludedCells();
    if (!rangeCoversCell(range, row, col) || std::any_of(excluded.begin(), excluded.end(), names))
        return false;
    excluded.emplace_back(row, col);
    range.setExcludedCells(std::move(excluded));
    return true;
}

std::optional<bool> exclude(Range& range, int row, int col) {
    std::optional<bool> excluded = excludeFromLine(range, rowsAxis, row, col);
    if (!excluded)
        excluded = excludeFromLine(range, colsAxis, col, row);
    return excluded ? excluded : excludeFromTable(range, row, col);
}

/// The line of a run in which a cell lies.
LineRun lineOf(LineRun const& run, int row, int col) {
    const int line = run.range.type == RangeType::Column ? col : row;
    return run.count > 1 && run.holdsLine(line) ? run.part(line, line) : run;
}

} // namespace

bool Selection::removeCellFromSelection(int row, int col) {
    // Of several ranges that hold the cell the first one of the list loses it.
    const auto rank = [&](int startRow, int startCol) {
        return order == RangeSet::Order::ByRow ? std::pair(startRow, startCol) : std::pair(startCol, startRow);
    };
    LineRun const* holder = nullptr;
    std::pair<int, int> holderRank;
    for (LineRun const& run : selection.lines()) {
        Range range = lineOf(run, row, col).range;
        const auto rangeRank = rank(range.row, range.col);
        if ((holder == nullptr || rangeRank < holderRank) && exclude(range, row, col)) {
            holder = &run;
            holderRank = rangeRank;
        }
    }
    const bool isCell = selection.cells().contains(row, col);
    const bool cellFirst =
        holder == nullptr || rank(row, col) < holderRank ||
        (rank(row, col) == holderRank && (holder->range.type != RangeType::Table || holder->behindCell));
    bool removed = false;
    if (isCell && cellFirst) {
        removed = selection.mainCell() != std::pair(row, col);
        if (removed)
            selection.setCells(selection.cells() - CellRegion({row, col, row, col}));
    } else if (holder != nullptr) {
        removed = excludeFromRun(std::size_t(holder - selection.lines().data()), row, col);
    }
    if (!removed)
        return false;
    forgetList();
    // Steps replayed from the base of before would bring the cell back.
    shiftRecord.reset();
    return true;
}

bool Selection::excludeFromRun(std::size_t index, int row, int col) {
    std::vector<LineRun>& lines = selection.editLines();
    const LineRun run = lines[index];
    LineRun single = lineOf(run, row, col);
    if (!exclude(single.range, row, col).value_or(false))
        return false;
    std::vector<LineRun> parts;
    if (run.firstLine() < single.firstLine())
        parts.push_back(run.part(run.firstLine(), single.firstLine() - 1));
    parts.push_back(single);
    if (single.lastLine() < run.lastLine())
        parts.push_back(run.part(single.lastLine() + 1, run.lastLine()));
    const auto at = lines.erase(lines.begin() + std::ptrdiff_t(index));
    lines.insert(at, parts.begin(), parts.end());
    return true;
}

// Moving.

SelectionChange Selection::moveSelectionRelative(int rows, int cols, GridSize view) {
    const int rowShift = withinLines(rows, main.row, view.rows);
    const int colShift = withinLines(cols, main.col, view.cols);
    forgetList();
    selection = selection.moved(rowShift, colShift);
    main.row += rowShift;
    main.col += colShift;
    // Steps replayed from the base of before would jump back to it.
    shiftRecord.reset();
    SelectionChange change;
    change.mainCell = true;
    change.ranges = true;
    change.size = true; // no other size, but other cells: what is told about them is told anew
    return change;
}

SelectionChange Selection::moveAlong(RangeSet const& ranges, int rows, int cols) {
    Range movedMain = main;
    movedMain.row += rows;
    movedMain.col += cols;
    return setSelection(movedMain, ranges.moved(rows, cols));
}

SelectionChange Selection::moveSelectionVertically(RangeSet const& ranges, int rows) {
    return moveAlong(ranges, rows, 0);
}

SelectionChange Selection::moveSelectionHorizontally(RangeSet const& ranges, int cols) {
    return moveAlong(ranges, 0, cols);
}

// Growing.

std::optional<SelectionChange> Selection::shiftAlong(Axis axis, Direction direction, bool toBlockEdge,
                                                     bool onlyTakeBack, bool* changed, ShiftBounds const& bounds) {
    const bool vertical = direction == Direction::Up || direction == Direction::Down;
    if (vertical != (axis == Axis::Rows) ||
        !shiftRecord.addStep(selection, direction, toBlockEdge, onlyTakeBack, changed))
        return std::nullopt;
    return replayAlong(axis, shiftRecord.baseSelection(), shiftRecord.steps(), shiftRecord.remembering(bounds));
}

SelectionChange Selection::replayAlong(Axis axis, RangeSet const& base, std::vector<SelectionType> const& steps,
                                       ShiftBounds const& bounds) {
    RangeSet grown = SelectionGrowth(base, steps, axis, bounds).result();
    if (!grown.mainCell())
        return setSelection(Range(0, 0, RangeIndexType::Model), std::move(grown));
    const auto [row, col] = *grown.mainCell();
    return replaceBy(std::move(grown), Range(row, col, RangeIndexType::Model));
}

std::optional<SelectionChange> Selection::selectUpOrDown(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                         bool* changed, ShiftBounds const& rows) {
    return shiftAlong(Axis::Rows, direction, toBlockEdge, onlyTakeBack, changed, rows);
}

std::optional<SelectionChange> Selection::selectLeftOrRight(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                            bool* changed, ShiftBounds const& cols) {
    return shiftAlong(Axis::Columns, direction, toBlockEdge, onlyTakeBack, changed, cols);
}

SelectionChange Selection::selectUpOrDown(RangeSet const& base, std::vector<SelectionType> const& steps,
                                          ShiftBounds const& rows) {
    return replayAlong(Axis::Rows, base, steps, rows);
}

SelectionChange Selection::selectLeftOrRight(RangeSet const& base, std::vector<SelectionType> const& steps,
                                             ShiftBounds const& cols) {
    return replayAlong(Axis::Columns, base, steps, cols);
}

// Inverting.

SelectionChange Selection::invertAlong(Axis axis, GridSize data, int headerLines) {
    RangeSet left = invertRanges(selection, axis, data, headerLines);
    if (left.mainCell()) {
        const auto [row, col] = *left.mainCell();
        return setSelection(Range(row, col, RangeIndexType::Model), std::move(left));
    }
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
