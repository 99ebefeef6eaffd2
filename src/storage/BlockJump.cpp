#include "storage/BlockJump.h"

#include <algorithm>
#include <limits>

int blockJump(int from, int step, int count, std::function<bool(int)> const& populated) {
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
