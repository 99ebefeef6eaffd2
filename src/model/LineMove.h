#pragma once

#include "core/Enumerations.h"

#include <functional>
#include <utility>
#include <vector>

/// Says where (Model) lines of a table are after a change that the item model does not announce line by line. For a
/// view that keeps something by line.
struct LineMove {
    Axis axis = Axis::Rows;
    std::function<int(int)> newLine; ///< where a line is now, -1 if it is gone
    /// Line and size of lines that are gone or, in a move where none goes, of lines that are back.
    std::vector<std::pair<int, int>>* sizes = nullptr;
};
