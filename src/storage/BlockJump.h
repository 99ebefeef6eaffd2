#pragma once

#include <algorithm>
#include <limits>

/// Cells of a line to look at: from `at` on by `step`, 1 or -1, in front of `end`.
struct LineWalk {
    int at;
    int step;
    int end;
};

/// Where a jump over a block of cells lands on a line of `count` cells: at the next edge between populated and empty
/// cells seen from cell `from` in the direction of `step`, 1 or -1. From the end of a block it goes to the start of
/// the next one; with no block behind it to the end of the line, and then the answer can be -1 or, from the last cell
/// but one, `count`: callers limit it. `from` itself if it has no neighbour. A block can have a million cells, so they
/// are not asked one by one: `skip(walk, filled)` gives the first cell of a LineWalk that does not hold a text, or with
/// `filled` false holds one; the end of the walk if there is none.
template <typename Skip>
int blockJump(int from, int step, int count, Skip const& skip) {
    int const neighbour = from + step;
    if (neighbour < 0 || (step > 0 && neighbour >= count))
        return from;
    int const limit = step > 0 ? count - 1 : std::numeric_limits<int>::max();
    int const outside = step > 0 ? count : -1;
    auto const populated = [&](int index) { return skip(LineWalk{index, step, index + step}, true) != index; };
    auto const skipTo = [&](int probe, int end, bool filled) {
        return (end - probe) * step > 0 ? skip(LineWalk{probe, step, end}, filled) : probe;
    };
    bool const here = populated(from);
    bool const next = populated(neighbour);
    if (!here && next)
        return neighbour;

    int const probe = neighbour + step;
    if (here && !next)
        return skipTo(probe, step > 0 ? limit : -1, false);
    int const other = skipTo(probe, outside, here);
    bool const inside = other >= 0 && other <= limit;
    // An empty run ends at the first populated cell, a populated run at its own last cell.
    return std::clamp(inside && here ? other - step : other, 0, limit);
}

/// The skip of blockJump over cells that `populated` knows one by one.
template <typename Populated>
auto skipByCell(Populated populated) {
    return [populated](LineWalk walk, bool filled) {
        while (walk.at != walk.end && populated(walk.at) == filled)
            walk.at += walk.step;
        return walk.at;
    };
}
