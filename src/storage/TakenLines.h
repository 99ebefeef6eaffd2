#pragma once

#include "core/Enumerations.h"
#include "storage/LineSizeStore.h"
#include "storage/TakenCols.h"
#include "storage/TakenRows.h"

#include <array>
#include <utility>
#include <vector>

/// Whole rows or columns that TableData::take has taken out of a table and TableData::putBack puts back where they
/// were, with their bytes, their sizes and with what of them was concealed. Blocks are raw lines of the table as it
/// stands with them, in the sense of the user, who sees rows as columns in a transposed table. Lines that were never
/// taken come as empty ones, so this is also how many lines are inserted at once.
class TakenLines {
public:
    using Blocks = std::vector<std::pair<int, int>>; ///< first and last line each, ascending and apart

    TakenLines(Axis axis, Blocks lineBlocks) : axis(axis), blocks(std::move(lineBlocks)) {
        for (auto const& [first, last] : blocks)
            lineCount += last - first + 1;
    }

    Axis getAxis() const { return axis; }
    Blocks const& getBlocks() const { return blocks; }
    int count() const { return lineCount; } ///< lines in all blocks

private:
    friend class TableData;

    Axis axis;
    Blocks blocks;
    int lineCount = 0;
    TakenRows rows;
    TakenCols cols;
    std::vector<int> concealed;
    std::array<LineSizeStore, 2> sizes; ///< as TableData has them
};
