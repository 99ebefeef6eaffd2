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

    /// The cells that would hold the text, as the smallest rectangle around them. Nothing needs a place for no text.
    CellRect reach() const {
        if (text.isEmpty())
            return {};
        if (!underEditor)
            return cells.bounds();
        auto const [row, col] = *underEditor;
        return (cells - CellRegion(CellRect{row, col, row, col})).bounds();
    }
    bool covers(int row, int col) const { return cells.contains(row, col) && underEditor != std::pair(row, col); }
};
