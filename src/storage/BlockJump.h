#pragma once

#include <algorithm>
#include <limits>

/// Where a jump over a block of cells lands on a line of `count` cells: at the next edge between populated and empty
/// cells seen from cell `from` in the direction of `step`, 1 or -1. From the end of a block it goes to the start of
/// the next one; with no block behind it to the end of the line, and then the answer can be -1 or, from the last cell
/// but one, `count`: callers limit it. `from` itself if it has no neighbour. A block can have a million cells, so
/// `populated`, which says whether the cell of an index holds a text, is no std::function.
template <typename Populated>
int blockJump(int from, int step, int count, Populated const& populated) {
    int const neighbour = from + step;
    if (neighbour < 0 || (step > 0 && neighbour >= count))
        return from;
    int const limit = step > 0 ? count - 1 : std::numeric_limits<int>::max();
    bool const here = populated(from);
    bool const next = populated(neighbour);
    if (!here && next)
        return neighbour;

    int probe = neighbour + step;
    if (here && !next) {
        while (probe >= 0 && probe < limit && !populated(probe))
            probe += step;
        return probe;
    }
    auto const inside = [&] { return probe >= 0 && probe <= limit; };
    while (inside() && populated(probe) == here)
        probe += step;
    // An empty run ends at the first populated cell, a populated run at its own last cell.
    int const target = inside() && here ? probe - step : probe;
    return std::clamp(target, 0, limit);
}
