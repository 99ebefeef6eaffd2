#include "storage/TakenCols.h"

#include <algorithm>

void TakenCols::take(CellRows& from, Blocks const& blocks) {
    bytes.clear();
    cellEnds.clear();
    cellsOfRow.clear();
    cellsOfRow.reserve(from.size());
    for (std::size_t row = 0; row < from.size(); ++row) {
        std::size_t const before = cellEnds.size();
        takeFromRow(from, row, blocks);
        cellsOfRow.push_back(static_cast<std::uint32_t>(cellEnds.size() - before));
    }
    line.clear();
}

void TakenCols::takeFromRow(CellRows& from, std::size_t row, Blocks const& blocks) {
    std::size_t const count = from.cellCount(row);
    auto const first = static_cast<std::size_t>(blocks.front().first);
    if (count <= first)
        return;
    line.clear();
    std::size_t col = 0;
    auto const keepUntil = [&](std::size_t end) {
        for (; col < std::min(end, count); ++col)
            line.push_back(from.cell(row, col));
    };
    for (auto const& block : blocks) {
        keepUntil(static_cast<std::size_t>(block.first));
        for (; col < std::min(static_cast<std::size_t>(block.second) + 1, count); ++col) {
            bytes.append(from.cell(row, col));
            cellEnds.push_back(bytes.size());
        }
    }
    keepUntil(count);
    // A row that only gets shorter keeps its bytes where they lie.
    if (line.size() == first)
        from.removeCells(row, first, count - first);
    else
        from.setRow(row, line);
}

void TakenCols::putBack(CellRows& to, Blocks const& blocks) {
    if (cellsOfRow.size() > to.size())
        to.resize(cellsOfRow.size());
    auto const first = static_cast<std::size_t>(blocks.front().first);
    std::size_t nextCell = 0;
    for (std::size_t row = 0; row < to.size(); ++row) {
        std::size_t const cells = row < cellsOfRow.size() ? cellsOfRow[row] : 0;
        if (cells || to.cellCount(row) > first) {
            mergeRow(to, row, nextCell, cells, blocks);
            to.setRow(row, line);
        }
        nextCell += cells;
    }
    *this = TakenCols();
}

/// Fills `line` with the row's present cells and the taken ones from `firstCell` on in between.
void TakenCols::mergeRow(CellRows const& to, std::size_t row, std::size_t firstCell, std::size_t cells,
                         Blocks const& blocks) {
    std::size_t const count = to.cellCount(row);
    std::size_t const endCell = firstCell + cells;
    std::size_t present = 0;
    line.clear();
    for (auto const& block : blocks) {
        auto const first = static_cast<std::size_t>(block.first);
        auto const end = static_cast<std::size_t>(block.second) + 1;
        while (line.size() < first && present < count)
            line.push_back(to.cell(row, present++));
        if (present == count && firstCell == endCell)
            return;
        line.resize(first);
        while (line.size() < end && firstCell < endCell)
            line.push_back(cell(firstCell++));
        if (present < count)
            line.resize(end);
    }
    while (present < count)
        line.push_back(to.cell(row, present++));
}
