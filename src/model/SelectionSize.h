#pragma once

#include "core/RangeSize.h"
#include "core/RangeVector.h"

#include <QtGlobal>

/// Rows and columns of a view or a table.
struct GridSize {
    int rows = 0;
    int cols = 0;
};

/// Counts what `ranges`, ordered by row and then column, hold in a view of that size. Height and width are those of the
/// rectangle that the ranges form if all are Cells, and 0 when they form none.
RangeSize selectionSize(RangeVector const& ranges, GridSize view);

/// The size shown for a rectangle that a drag is drawing between two corners.
RangeSize rectangleSize(Range const& corner, Range const& opposite);

/// Cells that the ranges hold in a view of that size: each from its start to the end of the view, exclusion lists and
/// overlaps not regarded.
qint64 numCellsInView(RangeVector const& ranges, GridSize view);
