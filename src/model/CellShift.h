#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"
#include "storage/CellPatch.h"

class TableModel;

/// What happens to selected cells and to those behind them in the same line.
enum class CellShift {
    Insert,   ///< the selected places become empty, their cells and the others go further along
    Remove,   ///< the selected cells go, the others close up
    ClearRest ///< everything from the first selected cell on becomes empty
};

/// The new bytes of all cells that a shift changes along rows (to the right and left) or along columns (down and up).
/// Concealed cells stay in place; whole rows and columns go as far as the data.
CellPatch shiftedCells(TableModel const& model, RangeSet const& ranges, Axis axis, CellShift shift);
