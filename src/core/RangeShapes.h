#pragma once

#include "core/RangeVector.h"

// Where ranges lie and what shape they form, without a table. All ranges of a vector are in one index space. The
// find functions sort the vector in place by the axis that they look along.

/// The smallest start row; INT_MAX if empty.
int findTopOccupiedRow(RangeVector& ranges);
/// The smallest start column; INT_MAX if empty.
int findLeftmostOccupiedCol(RangeVector& ranges);

/// The largest row of the Cell and Row ranges, 0 if there is none. Without `ignoreWhole` a Column or Table reaches the
/// last of the `numRows` rows of the table, and answers for all.
int findBottomOccupiedRow(RangeVector& ranges, bool ignoreWhole, int numRows);
/// The largest column of the Cell and Column ranges, 0 if there is none. Without `ignoreWhole` a Row or Table reaches
/// the last of the `numCols` columns of the table, and answers for all.
int findRightmostOccupiedCol(RangeVector& ranges, bool ignoreWhole, int numCols);

/// The ranges moved so that the topmost starts at row 0 and the leftmost at column 0.
RangeVector getRelativeRangeVector(RangeVector ranges);

/// Whether both form the same pattern of types and starts, wherever they lie.
bool areRangeVectorsSameShape(RangeVector const& a, RangeVector const& b);
/// The same, looking at rows only.
bool areRangeVectorsSameShapeRowWise(RangeVector const& a, RangeVector const& b);
/// The same, looking at columns only.
bool areRangeVectorsSameShapeColWise(RangeVector const& a, RangeVector const& b);
