#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"

// What the keyboard makes of a selection. All ranges are Model and sanitized, that is, as the model holds them.

namespace SelectionMoves {

/// The sizes that selecting towards an edge goes by, in Model rows and columns of the data.
struct TableExtent {
    int rows = 0;
    int cols = 0;
    int headerRows = 0;
    int headerCols = 0;
};

/// Up and Down move along Axis::Rows.
constexpr Axis axisOf(Direction direction) {
    return direction == Direction::Up || direction == Direction::Down ? Axis::Rows : Axis::Columns;
}
constexpr bool isForward(Direction direction) {
    return direction == Direction::Down || direction == Direction::Right;
}

/// The ranges moved by whole lines of the axis, not past its start. The main cell moves with them.
RangeSet moved(RangeSet const& ranges, Axis axis, int lines);

/// The rows (Axis::Rows) or columns that the ranges touch, whole from position `start` on. One table if they touch all.
RangeSet wholeLines(RangeSet const& ranges, Axis axis, int start);

/// What the selection covers when all of it reaches to the edge in that direction: to the end of the data forwards, to
/// the header backwards. Cells grow to cells; a whole row or column that runs along the direction reaches one edge
/// already and only has its start moved for the other.
RangeSet toEdge(RangeSet const& ranges, Direction direction, TableExtent const& table);

/// The cells of the rectangle with two opposite corners.
RangeSet rectangle(Range const& from, Range const& to);

/// The line furthest from the main cell, in that direction, that a range in the main cell's row or column starts on.
int farthestSelectedLine(RangeSet const& ranges, Range const& mainCell, Direction direction);

/// The smallest of the rows (or columns) left out of `range` that is greater than `above`, -1 if there is none.
int smallestAxisException(Range const& range, Axis axis, int above);

/// Flags the first range if none holds the main cell.
void makeFirstCellMainIfNoMain(RangeVector& ranges);

} // namespace SelectionMoves
