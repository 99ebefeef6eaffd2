#pragma once

#include "model/RangeSet.h"

#include <vector>

/// Goes through the cells of a selection row by row, each cell once, in pieces: the walk can be left after any row and
/// taken up again. Holds rectangles, no cells; the size of the table is fixed when it is made, and cells outside of it
/// are left out. All indexes are of the index space of the ranges.
class SelectedCellWalk {
public:
    SelectedCellWalk(RangeSet const& ranges, GridSize data);

    /// The next row that has selected cells, with its columns in ascending order; false at the end.
    bool next(int& row, std::vector<int>& cols);

private:
    std::vector<CellRect> rects; ///< in order, those of a band of rows next to one another
    std::size_t band = 0;        ///< the first rectangle of the present band
    int row = 0;                 ///< to come
};
