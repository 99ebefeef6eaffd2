#include "core/RangeShapes.h"

#include <algorithm>

namespace {

/// A line is a row or a column: the type of a range along the axis, the type of one across it, and the start.
struct Lines {
    int Range::*start;
    RangeType along;
    RangeType across;
};

constexpr Lines Rows = {&Range::row, RangeType::Row, RangeType::Column};
constexpr Lines Columns = {&Range::col, RangeType::Column, RangeType::Row};

void sortBy(RangeVector& ranges, Lines const& lines) {
    std::stable_sort(ranges.begin(), ranges.end(),
                     [&lines](Range const& a, Range const& b) { return a.*lines.start < b.*lines.start; });
}

int firstOccupied(RangeVector& ranges, Lines const& lines) {
    sortBy(ranges, lines);
    return ranges.empty() ? INT_MAX : ranges.front().*lines.start;
}

int lastOccupied(RangeVector& ranges, bool ignoreWhole, int numLines, Lines const& lines) {
    sortBy(ranges, lines);
    int last = 0;
    for (Range const& range : ranges) {
        if (range.type == RangeType::Cell || range.type == lines.along)
            last = std::max(last, range.*lines.start);
        else if (!ignoreWhole && (range.type == lines.across || range.type == RangeType::Table))
            return numLines - 1;
    }
    return last;
}

/// The shape of a vector along one axis: types and relative starts, in order.
std::vector<std::pair<int, RangeType>> shapeAlong(RangeVector ranges, Lines const& lines) {
    int const first = firstOccupied(ranges, lines);
    std::vector<std::pair<int, RangeType>> shape;
    for (Range const& range : ranges)
        shape.emplace_back(range.*lines.start - first, range.type);
    std::sort(shape.begin(), shape.end());
    return shape;
}

RangeVector sortedShape(RangeVector const& ranges) {
    RangeVector shape = getRelativeRangeVector(ranges);
    sortBy(shape, Columns);
    sortBy(shape, Rows);
    return shape;
}

} // namespace

int findTopOccupiedRow(RangeVector& ranges) {
    return firstOccupied(ranges, Rows);
}

int findLeftmostOccupiedCol(RangeVector& ranges) {
    return firstOccupied(ranges, Columns);
}

int findBottomOccupiedRow(RangeVector& ranges, bool ignoreWhole, int numRows) {
    return lastOccupied(ranges, ignoreWhole, numRows, Rows);
}

int findRightmostOccupiedCol(RangeVector& ranges, bool ignoreWhole, int numCols) {
    return lastOccupied(ranges, ignoreWhole, numCols, Columns);
}

RangeVector getRelativeRangeVector(RangeVector ranges) {
    int const top = findTopOccupiedRow(ranges);
    int const left = findLeftmostOccupiedCol(ranges);
    for (Range& range : ranges) {
        range.row -= top;
        range.col -= left;
    }
    return ranges;
}

bool areRangeVectorsSameShape(RangeVector const& a, RangeVector const& b) {
    return a.size() == b.size() && sortedShape(a) == sortedShape(b);
}

bool areRangeVectorsSameShapeRowWise(RangeVector const& a, RangeVector const& b) {
    return a.size() == b.size() && shapeAlong(a, Rows) == shapeAlong(b, Rows);
}

bool areRangeVectorsSameShapeColWise(RangeVector const& a, RangeVector const& b) {
    return a.size() == b.size() && shapeAlong(a, Columns) == shapeAlong(b, Columns);
}
