#include "core/Range.h"

#include <algorithm>

namespace {

bool within(int index, int first, int last) {
    return index >= first && index <= last;
}

/// The element at an index that may lie outside; null if there is none.
template <class Vector>
auto elementAt(Vector const& values, qint64 index) -> decltype(values.data()) {
    return index >= 0 && index < qint64(values.size()) ? &values[std::size_t(index)] : nullptr;
}

} // namespace

RangeDetails const Range::none;

Range::Range(int row, int col, RangeIndexType indexType)
    : type(RangeType::Cell), indexType(indexType), row(row), col(col) {}

Range::Range(int index, RangeType type, RangeIndexType indexType)
    : type(type), indexType(indexType), row(type == RangeType::Column ? 0 : index),
      col(type == RangeType::Row ? 0 : index) {}

Range::Range(RangeType type, RangeIndexType indexType) : type(type), indexType(indexType) {}

Range::Range(RangeType type)
    : type(type), row(type == RangeType::None ? -1 : 0), col(type == RangeType::None ? -1 : 0) {}

bool Range::isValid() const {
    switch (type) {
    case RangeType::Cell: return row >= 0 && col >= 0;
    case RangeType::Row: return row >= 0;
    case RangeType::Column: return col >= 0;
    case RangeType::Table: return true;
    case RangeType::None: break;
    }
    return false;
}

void Range::moveRelative(int rows, int cols, bool invalidate) {
    if (type == RangeType::None)
        return;
    row += rows;
    col += cols;
    if (type == RangeType::Cell && invalidate) {
        if (row < 0 || col < 0)
            type = RangeType::None;
        return;
    }
    row = std::max(row, 0);
    col = std::max(col, 0);
}

bool Range::containsRange(Range const& other) const {
    bool const isTable = type == RangeType::Table;
    switch (other.type) {
    case RangeType::Cell: {
        bool const sameRowOnly = type == RangeType::Cell || type == RangeType::Row;
        bool const sameColOnly = type == RangeType::Cell || type == RangeType::Column;
        return type != RangeType::None && within(other.row, row, sameRowOnly ? row : rowEnd) &&
               within(other.col, col, sameColOnly ? col : colEnd);
    }
    case RangeType::Row:
        return (isTable || type == RangeType::Row) && other.row == row && other.col >= col && other.colEnd <= colEnd;
    case RangeType::Column:
        return (isTable || type == RangeType::Column) && other.col == col && other.row >= row && other.rowEnd <= rowEnd;
    case RangeType::Table:
        return isTable && other.row >= row && other.col >= col && other.rowEnd <= rowEnd && other.colEnd <= colEnd;
    case RangeType::None: break;
    }
    return false;
}

bool Range::operator==(Range const& other) const {
    return type == other.type && (type == RangeType::None || (row == other.row && col == other.col));
}

bool Range::hasExclusions() const {
    return details &&
           !(details->excludedRows.empty() && details->excludedCols.empty() && details->excludedCells.empty());
}

QVariant valueAt(Range const& range, int row, int col, bool old) {
    qint64 const rowOffset = qint64(row) - range.row;
    qint64 const colOffset = qint64(col) - range.col;
    QVariant const* element = nullptr;
    if (range.type == RangeType::Row || range.type == RangeType::Column) {
        qint64 const offset = range.type == RangeType::Row ? rowOffset : colOffset;
        element = elementAt(old ? range.lineOldValues() : range.lineValues(), offset);
    } else if (range.type == RangeType::Table) {
        auto const* line = elementAt(old ? range.tableOldValues() : range.tableValues(), rowOffset);
        element = line ? elementAt(*line, colOffset) : nullptr;
    }
    if (element)
        return *element;
    return old ? range.oldValue() : range.value();
}

void copyWithoutValues(Range& to, Range const& from) {
    to.type = from.type;
    to.indexType = from.indexType;
    to.row = from.row;
    to.col = from.col;
    to.hasMainCell = from.hasMainCell;
    to.mainIndex = from.mainIndex;
    to.mainRow = from.mainRow;
    to.mainCol = from.mainCol;
    to.setExcludedRows(from.excludedRows());
    to.setExcludedCols(from.excludedCols());
    to.setExcludedCells(from.excludedCells());
}

bool sortRangeRowAscending(Range const& a, Range const& b) {
    return a.row < b.row;
}

bool sortRangeColAscending(Range const& a, Range const& b) {
    return a.col < b.col;
}

bool sortRangeRowDescending(Range const& a, Range const& b) {
    return a.row > b.row;
}

bool sortRangeColDescending(Range const& a, Range const& b) {
    return a.col > b.col;
}

bool sortIntPairsRowAscending(std::pair<int, int> const& a, std::pair<int, int> const& b) {
    return a.first < b.first;
}

bool sortIntPairsColAscending(std::pair<int, int> const& a, std::pair<int, int> const& b) {
    return a.second < b.second;
}
