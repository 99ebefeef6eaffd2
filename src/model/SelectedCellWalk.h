#pragma once

#include "core/RangeVector.h"
#include "model/SelectionSize.h"

#include <vector>

/// Goes through the cells of a selection row by row, each cell once, in pieces: the walk can be left after any row and
/// taken up again. Holds a copy of the ranges, no cells; the size of the table is fixed when it is made. All indexes
/// are of the index space of the ranges.
class SelectedCellWalk {
public:
    SelectedCellWalk(RangeVector const& ranges, GridSize data);

    /// The next row that has selected cells, with its columns in ascending order; false at the end.
    bool next(int& row, std::vector<int>& cols);

private:
    void addRange(Range const& range, std::vector<int>& cols) const;
    int nextOccupiedRow() const;

    RangeVector ranges;
    GridSize data;
    std::vector<Range const*> downwards; ///< columns and tables, which go on to the last row
    std::vector<Range const*> inOneRow;  ///< cells and rows, by their row
    std::size_t position = 0;            ///< in `inOneRow`, the first one of a row to come
    int row = 0;                         ///< the first row to come
    int firstDownward = 0;               ///< the topmost row of a column or table
};
