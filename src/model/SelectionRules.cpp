#include "model/SelectionRules.h"

#include "model/RangeAxis.h"
#include "model/RangeOrder.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace {

using Cells = std::vector<std::pair<int, int>>;

void mergeNeighbouringEquals(RangeVector& ranges) {
    auto kept = ranges.begin();
    for (auto next = kept + 1; next != ranges.end(); ++next) {
        if (*next == *kept)
            kept->hasMainCell = kept->hasMainCell || next->hasMainCell;
        else if (++kept != next)
            *kept = std::move(*next);
    }
    ranges.erase(kept + 1, ranges.end());
}

bool contains(std::vector<int> const& list, int number) {
    return std::find(list.begin(), list.end(), number) != list.end();
}

/// Whether the table leaves out any cell of `range`.
bool leavesOut(Range const& table, Range const& range) {
    const bool oneRow = range.type == RangeType::Cell || range.type == RangeType::Row;
    const bool oneCol = range.type == RangeType::Cell || range.type == RangeType::Column;
    const auto inRows = [&](int row) { return row >= range.row && (!oneRow || row == range.row); };
    const auto inCols = [&](int col) { return col >= range.col && (!oneCol || col == range.col); };
    const auto inRange = [&](auto const& cell) { return inRows(cell.first) && inCols(cell.second); };
    return std::any_of(table.excludedRows.begin(), table.excludedRows.end(), inRows) ||
           std::any_of(table.excludedCols.begin(), table.excludedCols.end(), inCols) ||
           std::any_of(table.excludedCells.begin(), table.excludedCells.end(), inRange);
}

void tidyExcludedCells(Range& table) {
    Cells& cells = table.excludedCells;
    std::sort(cells.begin(), cells.end());
    cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
    std::erase_if(cells, [&](auto const& cell) {
        return cell.first < table.row || cell.second < table.col || contains(table.excludedRows, cell.first) ||
               contains(table.excludedCols, cell.second);
    });
}

/// What lies in a table that starts the list adds nothing to it; a cell once taken out of the table returns to it.
void absorbIntoTable(RangeVector& ranges) {
    Range& table = ranges.front();
    if (table.type != RangeType::Table)
        return;
    tidyExcludedCells(table);
    const Cells excluded = std::exchange(table.excludedCells, {});
    std::vector<bool> putBack(excluded.size(), false);
    const auto isAbsorbedCell = [&](Range const& range) {
        if (range.type != RangeType::Cell)
            return false;
        const auto cell = std::pair(range.row, range.col);
        const auto found = std::lower_bound(excluded.begin(), excluded.end(), cell);
        if (found != excluded.end() && *found == cell) {
            putBack[std::size_t(found - excluded.begin())] = true;
            return true;
        }
        return table.containsRange(range) && !leavesOut(table, range);
    };
    ranges.erase(std::remove_if(ranges.begin() + 1, ranges.end(), isAbsorbedCell), ranges.end());
    for (std::size_t i = 0; i < excluded.size(); ++i) {
        if (!putBack[i])
            table.excludedCells.push_back(excluded[i]);
    }

    const auto isAbsorbedLine = [&](Range const& range) {
        return range.type != RangeType::Cell && table.containsRange(range) && !leavesOut(table, range);
    };
    ranges.erase(std::remove_if(ranges.begin() + 1, ranges.end(), isAbsorbedLine), ranges.end());
}

/// Drops the cells that follow a whole line in that line. The list is in order along it, so they all lie behind the
/// line's start. The line's exclusions are not consulted: a cell once taken out of a line cannot be put back by adding
/// it.
void dropCellsBehindLines(RangeVector& ranges, RangeAxis const& axis) {
    int line = INT_MIN;
    bool lineSelected = false;
    std::erase_if(ranges, [&](Range const& range) {
        if (range.*axis.line != line) {
            line = range.*axis.line;
            lineSelected = false;
        }
        lineSelected = lineSelected || range.type == axis.lineType;
        return lineSelected && range.type == RangeType::Cell;
    });
}

void flagMainCell(RangeVector& ranges, Range const& mainCell) {
    bool held = false;
    for (Range& range : ranges) {
        range.hasMainCell = range.containsRange(mainCell);
        if (!range.hasMainCell)
            continue;
        held = true;
        if (range.type == RangeType::Row) {
            range.mainIndex = mainCell.col - range.col;
        } else if (range.type == RangeType::Column) {
            range.mainIndex = mainCell.row - range.row;
        } else if (range.type == RangeType::Table) {
            range.mainRow = mainCell.row - range.row;
            range.mainCol = mainCell.col - range.col;
        }
    }
    if (!held)
        ranges.push_back(mainCell);
}

} // namespace

void sanitizeRanges(RangeVector& ranges, Range& mainCell) {
    if (mainCell.row == -1 || mainCell.col == -1)
        throw std::runtime_error("Main cell not a single cell.");
    mainCell.hasMainCell = true;
    mainCell.type = RangeType::Cell;
    if (ranges.empty()) {
        ranges.push_back(mainCell);
        return;
    }
    sortByRowThenColumn(ranges);
    mergeNeighbouringEquals(ranges);
    absorbIntoTable(ranges);
    dropCellsBehindLines(ranges, rowsAxis);
    sortByColumn(ranges);
    dropCellsBehindLines(ranges, colsAxis);
    flagMainCell(ranges, mainCell);
}
