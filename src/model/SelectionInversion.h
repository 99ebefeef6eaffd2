#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"

/// What a selection leaves of a table of `data` Model rows and columns, line by line along `axis` from `firstLine` on:
/// a line without selected cells becomes a Row (Axis::Rows) or Column range, one with some becomes Cells, one with all
/// is left out. Where the selection takes the same positions out of all lines, what is left comes as ranges across
/// them instead. The main cell is the start of the first range; none is left for nothing.
RangeSet invertRanges(RangeSet const& ranges, Axis axis, GridSize data, int firstLine);
