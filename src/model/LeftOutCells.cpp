#include "model/LeftOutCells.h"

#include <algorithm>

CellRegion leftOutCells(RangeSet const& ranges, GridSize grid) {
    if (std::none_of(ranges.lines().begin(), ranges.lines().end(),
                     [](LineRun const& run) { return run.range.hasExclusions(); }))
        return {};
    return ranges.coverage(grid, false) - ranges.coverage(grid, true);
}
