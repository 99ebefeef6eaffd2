#pragma once

#include "core/RangeVector.h"
#include "storage/CellPatch.h"

class TableModel;

/// The new bytes of all cells that ranges with contents change when they are written one after the other, so that of
/// several texts for one cell the last one stands. Texts come from the elements of a range; whole rows, columns and
/// tables have their scalar in all other cells of the grid, and there exclusions do not count. Cells that hold the
/// text already are left out, but for texts that the encoding cannot carry. The ranges are Model.
CellPatch newContents(TableModel const& model, RangeVector const& ranges);
