#pragma once

#include "core/CellRegion.h"

#include <QString>

#include <optional>
#include <utility>

/// The text of an edit that is not over: all cells of the edit show it, and the data stay as they are. So a key costs
/// the same however many cells are edited.
struct ProvisionalText {
    CellRegion cells;                               ///< Model
    std::optional<std::pair<int, int>> underEditor; ///< a cell that goes on to show what it holds
    QString text;

    bool covers(int row, int col) const { return cells.contains(row, col) && underEditor != std::pair(row, col); }
};
