#pragma once

#include "core/CellRegion.h"

/// What a load of a saved file would not give back as it was in the table. An empty cell and one that is not there are
/// the same.
struct ChangedCells {
    /// The search for more ends with the line in which there are as many.
    static constexpr int most = 10000;

    CellRegion cells;    ///< of the table, in the index space of who tells it; with each change there is one at least
    bool goesOn = false; ///< the search has ended before the last line
    bool moves = false;  ///< cells would come back in other places, or the table with more or fewer lines

    bool isEmpty() const { return cells.isEmpty(); }
};
