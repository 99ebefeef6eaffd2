#pragma once

#include "core/Enumerations.h"
#include "core/RangeVector.h"
#include "model/SelectionSize.h"

/// What a selection leaves of a table of `data` Model rows and columns, line by line along `axis` from `firstLine` on:
/// a line without selected cells becomes a Row (Axis::Rows) or Column range, one with some becomes Cells, one with all
/// is left out. Where the selection takes the same positions out of all lines, what is left comes as ranges across
/// them instead. The first range is flagged to hold the main cell, with absolute offsets; none is left for nothing.
RangeVector invertRanges(RangeVector const& ranges, Axis axis, GridSize data, int firstLine);
