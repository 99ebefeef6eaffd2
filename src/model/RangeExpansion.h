#pragma once

#include "core/Enumerations.h"
#include "core/RangeVector.h"

#include <QVariant>

#include <functional>
#include <vector>

/// Turns ranges that cover whole rows, columns or a table into single cells, or into the rows and columns that they
/// touch. The extent is the size of the data in the index space of the ranges; the ends and exclusions of ranges are
/// not looked at.
class RangeExpansion {
public:
    using Indexes = std::vector<int>;
    /// Gives the content of a cell.
    using Reader = std::function<QVariant(int row, int col)>;

    RangeExpansion(int rows, int cols) : rows(rows), cols(cols) {}

    /// One list of Model cells a row, from left to right, or one a column, from top to bottom, each cell once. A Cell
    /// range is copied as it is. The readers fill the new and the old content; a null one leaves it. The offsets of a
    /// main cell are compared with absolute positions.
    std::vector<RangeVector> cellsByRows(RangeVector const& ranges, Reader const& value, Reader const& oldValue) const;
    std::vector<RangeVector> cellsByCols(RangeVector const& ranges, Reader const& value, Reader const& oldValue) const;
    /// The rows of cellsByRows, split where neighbouring columns are not adjacent.
    std::vector<RangeVector> cellBlocksHorizontal(RangeVector const& ranges, Reader const& value,
                                                  Reader const& oldValue) const;
    /// The cells in the order of the ranges, with the contents that the ranges hold. Nothing is read.
    RangeVector cellsOnly(RangeVector const& ranges) const;
    /// The contents of all cells in the order of the ranges.
    std::vector<QVariant> cellValues(RangeVector const& ranges, Reader const& value) const;
    /// The start row of Cells and Rows and every row that a Column or Table reaches; not sorted, with repetitions.
    Indexes touchedRows(RangeVector const& ranges) const { return touchedLines(ranges, Axis::Rows); }
    /// The same for columns.
    Indexes touchedCols(RangeVector const& ranges) const { return touchedLines(ranges, Axis::Columns); }

private:
    /// A cell on its way to become a Range, which is too large to be sorted by the million.
    struct Place {
        int row;
        int col;
        std::size_t source; ///< index of the range that covers it
    };

    std::vector<Place> placesOf(RangeVector const& ranges) const;
    std::vector<RangeVector> cellsByLines(Axis axis, RangeVector const& ranges, Reader const& value,
                                          Reader const& oldValue) const;
    Indexes touchedLines(RangeVector const& ranges, Axis axis) const;

    int rows;
    int cols;
};
