#include "core/RangeVector.h"

#include "core/IndexUtilities.h"

#include <algorithm>

namespace {

/// The end of an open Row or Table in a vector that does not know the size of its table.
constexpr int AssumedLastCol = 1000;

using Coordinate = int Range::*;

int smallestStart(RangeVector const& ranges, Coordinate start) {
    int smallest = INT_MAX;
    for (Range const& range : ranges)
        smallest = std::min(smallest, range.*start);
    return std::max(smallest, 0);
}

int largestStart(RangeVector const& ranges, Coordinate start) {
    int largest = 0;
    for (Range const& range : ranges)
        largest = std::max(largest, range.*start);
    return largest;
}

/// `wholeType` is the type that, like a Table, reaches over all lines of the axis and so gives -1.
void orderedSetOfStarts(std::vector<int>& out, RangeVector const& ranges, Coordinate start, RangeType wholeType) {
    std::vector<int> starts;
    starts.reserve(ranges.size());
    for (Range const& range : ranges)
        starts.push_back(range.type == wholeType || range.type == RangeType::Table ? -1 : range.*start);
    Utilities::getOrderedSet(out, starts);
}

int lowestNegativeStart(RangeVector& ranges, Coordinate start) {
    std::stable_sort(ranges.begin(), ranges.end(),
                     [start](Range const& a, Range const& b) { return a.*start < b.*start; });
    if (ranges.empty() || ranges.front().*start >= 0 || ranges.back().*start < 0)
        return -1;
    return ranges.front().*start;
}

} // namespace

int RangeVector::numCells() const {
    std::size_t count = 0;
    for (Range const& range : *this) {
        if (range.type == RangeType::Cell)
            ++count;
        else if (range.type == RangeType::Row || range.type == RangeType::Column)
            count += range.lineOldValues().size();
        else if (range.type == RangeType::Table && !range.tableOldValues().empty())
            count += range.tableOldValues().size() * range.tableOldValues().front().size();
    }
    return static_cast<int>(count);
}

int RangeVector::minRow() const {
    return smallestStart(*this, &Range::row);
}

int RangeVector::minCol() const {
    return smallestStart(*this, &Range::col);
}

int RangeVector::maxRow() const {
    return largestStart(*this, &Range::row);
}

int RangeVector::maxCol() const {
    return largestStart(*this, &Range::col);
}

bool RangeVector::hasTableCell() const {
    return hasType(RangeType::Table);
}

bool RangeVector::hasRowCell() const {
    return hasType(RangeType::Row);
}

bool RangeVector::hasColCell() const {
    return hasType(RangeType::Column);
}

bool RangeVector::hasType(RangeType type) const {
    return std::any_of(begin(), end(), [type](Range const& range) { return range.type == type; });
}

bool RangeVector::containsRange(Range const& other) const {
    return std::any_of(begin(), end(), [&other](Range const& range) { return range.containsRange(other); });
}

void RangeVector::moveRelative(int rows, int cols, bool invalidate) {
    for (Range& range : *this)
        range.moveRelative(rows, cols, invalidate);
    if (invalidate)
        std::erase_if(*this, [](Range const& range) { return range.type == RangeType::None; });
}

void RangeVector::sanitize() {
    if (size() == 1 && front().type == RangeType::Table)
        return;
    std::sort(begin(), end(), sortRangeRowAscending);
    std::sort(begin(), end(), sortRangeColAscending);
}

void RangeVector::getOrderedSet(std::vector<int>& out, std::vector<int> const& in) {
    Utilities::getOrderedSet(out, in);
}

void RangeVector::getOrderedSetOfRowsRaw(std::vector<int>& out) const {
    orderedSetOfStarts(out, *this, &Range::row, RangeType::Column);
}

void RangeVector::getOrderedSetOfColsRaw(std::vector<int>& out) const {
    orderedSetOfStarts(out, *this, &Range::col, RangeType::Row);
}

int RangeVector::findLowestRowStartIndex() {
    return lowestNegativeStart(*this, &Range::row);
}

int RangeVector::findLowestColStartIndex() {
    return lowestNegativeStart(*this, &Range::col);
}

void RangeVector::colsInRow(std::vector<int>& out, int row, bool sort) {
    if (sort) {
        std::stable_sort(begin(), end(), sortRangeColAscending);
        std::stable_sort(begin(), end(), sortRangeRowAscending);
    }
    for (Range const& range : *this) {
        if (range.row > row)
            break;
        if (range.row != row && range.row >= 0)
            continue;
        if (range.type == RangeType::Cell || range.type == RangeType::Column) {
            out.push_back(range.col);
        } else if (range.type == RangeType::Row || range.type == RangeType::Table) {
            int const openEnd = tableCols >= 0 ? tableCols : AssumedLastCol;
            int const last = range.colEnd == INT_MAX ? openEnd : range.colEnd;
            for (int col = range.col; col <= last; ++col)
                out.push_back(col);
        }
    }
}

Range RangeVector::transposeRange(Range const& range) {
    Range result(range.type, RangeIndexType::Model);
    result.hasMainCell = range.hasMainCell;
    if (range.type == RangeType::Row) {
        result.type = RangeType::Column;
        result.col = range.row;
        result.mainIndex = range.mainIndex;
    } else if (range.type == RangeType::Column) {
        result.type = RangeType::Row;
        result.row = range.col;
        result.mainIndex = range.mainIndex;
    } else {
        result.row = range.col;
        result.col = range.row;
        result.mainRow = range.mainRow;
        result.mainCol = range.mainCol;
    }
    return result;
}
