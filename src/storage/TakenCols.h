#pragma once

#include "storage/CellRows.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// Whole columns that were taken out of a CellRows and can be put back: their bytes in one piece, row by row.
class TakenCols {
public:
    using Blocks = std::vector<std::pair<int, int>>; ///< first and last column each, ascending

    /// Takes the stored cells of the blocks out, each row being rewritten once whatever the number of blocks.
    void take(CellRows& from, Blocks const& blocks);
    /// Makes room at the blocks and puts the taken cells there, or empty cells where none were taken.
    void putBack(CellRows& to, Blocks const& blocks);

private:
    void takeFromRow(CellRows& from, std::size_t row, Blocks const& blocks);
    void mergeRow(CellRows const& to, std::size_t row, std::size_t firstCell, std::size_t cells, Blocks const& blocks);
    std::string_view cell(std::size_t i) const {
        std::size_t const start = i ? cellEnds[i - 1] : 0;
        return std::string_view(bytes).substr(start, cellEnds[i] - start);
    }

    std::string bytes;
    std::vector<std::uint64_t> cellEnds;
    std::vector<std::uint32_t> cellsOfRow;
    std::vector<std::string_view> line; ///< of the row in work
};
