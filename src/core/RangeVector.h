#pragma once

#include "core/Range.h"

#include <QMetaType>

#include <vector>

/// A selection, an undo record, the content of the clipboard or the matches of a search: a list of ranges, passed by
/// value. Indexes are of whatever space the elements state. Sorts in several passes are named in the order of the
/// passes, so the last one is the major order.
class RangeVector : public std::vector<Range> {
public:
    using std::vector<Range>::vector;

    // What the elements cover.

    /// The cells whose old contents are filled in, not those that the ranges cover.
    int numCells() const;
    /// The smallest start, INT_MAX if empty, at least 0.
    int minRow() const;
    int minCol() const;
    /// The largest start, 0 if empty, at least 0.
    int maxRow() const;
    int maxCol() const;
    /// Whether any element is a Table, Row or Column.
    bool hasTableCell() const;
    bool hasRowCell() const;
    bool hasColCell() const;
    /// Whether any single element contains `other`.
    bool containsRange(Range const& other) const;

    // Moving and ordering.

    /// Moves every element; with `invalidate` elements that leave the table are removed.
    void moveRelative(int rows, int cols, bool invalidate);
    /// Sorts by row and then by column, the order of equals being open; a single Table stays as it is.
    void sanitize();

    // Rows and columns of the elements.

    /// Writes the elements of `in`, sorted and each once, to `out`.
    static void getOrderedSet(std::vector<int>& out, std::vector<int> const& in);
    /// The start rows, sorted and each once; -1 stands for all rows, which a Column or Table gives.
    void getOrderedSetOfRowsRaw(std::vector<int>& out) const;
    /// The start columns, sorted and each once; -1 stands for all columns, which a Row or Table gives.
    void getOrderedSetOfColsRaw(std::vector<int>& out) const;
    /// Sorts the vector by row and gives the lowest negative start; -1 if there is none or all are negative.
    int findLowestRowStartIndex();
    int findLowestColStartIndex();
    /// Appends the columns that elements on `row`, or on a negative row, cover. The walk ends at the first element
    /// below `row`, so the vector must be in row order; `sort` sorts it by column and then row. The last column of an
    /// open end is `tableCols`, or 1000 if that is not set.
    void colsInRow(std::vector<int>& out, int row, bool sort);

    /// The range with rows and columns exchanged, as a Model range without contents. A whole row or column starts at
    /// 0 afterwards; the offsets of a Table's main cell stay unexchanged.
    static Range transposeRange(Range const& range);

    // Reserved interface: nothing may depend on more than these fixed answers.

    int numRows() const { return 0; }
    int numCols() const { return 0; }
    bool hasRow(int) const { return false; }
    bool hasCol(int) const { return false; }
    int numCellsInRow(int) const { return 0; }
    int numCellsInCol(int) const { return 0; }
    int numRowRangesInRow(int) const { return 0; }
    int numColRangesInCol(int) const { return 0; }
    void rowsInCol(std::vector<int>&, int, bool) {}
    void getDimensions(int&, int&) const {}

    int tableRows = -1; ///< size of the table that the ranges come from, -1 if not known
    int tableCols = -1;

private:
    bool hasType(RangeType type) const;
};

Q_DECLARE_METATYPE(RangeVector)
