#pragma once

#include <limits>
#include <optional>

/// The arithmetic of one axis of the grid, which is larger than the data: it always offers empty lines to type into.
/// A line is a row or a column.
struct TableShape {
    int modelCount = 0;     ///< visible lines of the data
    int concealedCount = 0; ///< lines that the model does not show
    int buffer = 0;         ///< empty lines offered behind the last line in use
    int minimum = 0;        ///< least number of lines
    bool readOnly = false;  ///< a read-only grid is exactly its data
    /// Empty lines end here; data go on.
    int most = std::numeric_limits<int>::max();

    /// The number of lines of the grid. `lastSelected` is the last selected line if anything is selected, so that the
    /// buffer also lies behind the selection.
    int viewCount(std::optional<int> lastSelected) const;
    /// The last line that a selection may stand on after lines have been removed from the data.
    int lastSelectable() const;
};
