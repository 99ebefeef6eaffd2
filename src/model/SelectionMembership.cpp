#include "model/SelectionMembership.h"

#include <algorithm>

namespace {

/// Up to here a walk is as fast as the look-up.
constexpr std::size_t fewRanges = 16;

bool contains(std::vector<int> const& list, int number) {
    return std::find(list.begin(), list.end(), number) != list.end();
}

std::uint64_t cellKey(int row, int col) {
    return (std::uint64_t(std::uint32_t(row)) << 32) | std::uint32_t(col);
}

} // namespace

bool rangeCoversCell(Range const& range, int row, int col) {
    switch (range.type) {
    case RangeType::Cell: return range.row == row && range.col == col;
    case RangeType::Row: return range.row == row && col >= range.col && !contains(range.excludedCols(), col);
    case RangeType::Column: return range.col == col && row >= range.row && !contains(range.excludedRows(), row);
    case RangeType::Table:
        return row >= range.row && col >= range.col && !contains(range.excludedCols(), col) &&
               !contains(range.excludedRows(), row) &&
               std::find(range.excludedCells().begin(), range.excludedCells().end(), std::pair(row, col)) ==
                   range.excludedCells().end();
    case RangeType::None: break;
    }
    return false;
}

bool SelectionMembership::coversCell(RangeVector const& ranges, int row, int col) {
    const auto covers = [&](Range const& range) { return rangeCoversCell(range, row, col); };
    if (ranges.size() <= fewRanges)
        return std::any_of(ranges.begin(), ranges.end(), covers);
    if (!built)
        build(ranges);
    if (cells.count(cellKey(row, col)) > 0)
        return true;
    const auto [firstRow, lastRow] = rows.equal_range(row);
    const auto [firstCol, lastCol] = cols.equal_range(col);
    const auto lineCovers = [&](auto const& line) { return covers(ranges[line.second]); };
    return std::any_of(firstRow, lastRow, lineCovers) || std::any_of(firstCol, lastCol, lineCovers) ||
           std::any_of(tables.begin(), tables.end(), [&](std::size_t index) { return covers(ranges[index]); });
}

void SelectionMembership::build(RangeVector const& ranges) {
    cells.clear();
    rows.clear();
    cols.clear();
    tables.clear();
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        Range const& range = ranges[i];
        if (range.type == RangeType::Cell)
            cells.insert(cellKey(range.row, range.col));
        else if (range.type == RangeType::Row)
            rows.emplace(range.row, i);
        else if (range.type == RangeType::Column)
            cols.emplace(range.col, i);
        else if (range.type == RangeType::Table)
            tables.push_back(i);
    }
    built = true;
}
