#pragma once

#include "core/RangeSize.h"
#include "model/RangeSet.h"

#include <QtGlobal>

/// Counts what `ranges` hold in a view of that size. Height and width are those of the rectangle that the ranges form
/// if all are Cells, and 0 when they form none. In order of rows and then columns a Table sets the number of cells, to
/// which the cells behind it add.
RangeSize selectionSize(RangeSet const& ranges, GridSize view);

/// The size shown for a rectangle that a drag is drawing between two corners.
RangeSize rectangleSize(Range const& corner, Range const& opposite);

/// Cells that the ranges hold in a view of that size: each from its start to the end of the view, exclusion lists and
/// overlaps not regarded.
qint64 numCellsInView(RangeSet const& ranges, GridSize view);
