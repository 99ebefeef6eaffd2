#pragma once

#include "storage/CellPatch.h"
#include "storage/TakenRows.h"

/// What cells held before one value was written to all of them: whole rows where that is most of what a row holds, the
/// bytes of single cells elsewhere. Empty cells outside of the data take no room. Belongs to the table that it comes
/// from, and everything counts as stored there.
class ReplacedCells {
public:
    bool isEmpty() const { return cells.empty() && places.empty(); }
    /// Cells of which the bytes are kept one by one, and rows that are kept whole.
    std::size_t singleCells() const { return cells.size(); }
    TakenRows::Blocks const& wholeRows() const { return places; }

private:
    friend class EditableDataContainer;

    void keepRow(CellRows& from, int row) {
        rows.takeOut(from, static_cast<std::size_t>(row));
        if (!places.empty() && places.back().second + 1 == row)
            places.back().second = row;
        else
            places.emplace_back(row, row);
    }

    CellPatch cells;
    TakenRows rows;
    TakenRows::Blocks places;
    int storedRows = 0; ///< that the table had before
};
