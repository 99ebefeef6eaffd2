#pragma once

#include "storage/CellRows.h"

#include <utility>
#include <vector>

/// Whole rows that were taken out of a CellRows and can be put back: the records of the rows, while their bytes stay in
/// the blocks where they lie. If the home of the rows is cleared or destroyed first, they are gone and empty rows come
/// back in their place.
class TakenRows {
public:
    using Blocks = std::vector<std::pair<int, int>>; ///< first and last row each, ascending

    TakenRows() = default;
    ~TakenRows() { release(); }
    TakenRows(TakenRows const&) = delete;
    TakenRows& operator=(TakenRows const&) = delete;

    /// Takes the stored rows of the blocks out, in one pass over the rows whatever the number of blocks.
    void take(CellRows& from, Blocks const& blocks);
    /// Makes room at the blocks and puts the taken rows there, or empty rows where none were taken.
    void putBack(CellRows& to, Blocks const& blocks);

    // Single rows, which leave a row without cells in their place, in ascending order.

    void takeOut(CellRows& from, std::size_t row);
    /// Puts the rows back to where they were, in place of what stands there now.
    void putInPlace(CellRows& to, Blocks const& places);

private:
    friend class CellRows;
    void release();
    void comeFrom(CellRows& from);
    void leaveHome();

    CellRows* home = nullptr;
    std::vector<CellRows::Row> rows;
};
