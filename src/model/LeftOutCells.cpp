#include "model/LeftOutCells.h"

#include <algorithm>

namespace {

bool hasExclusions(LineRun const& run) {
    Range const& range = run.range;
    return !range.excludedRows.empty() || !range.excludedCols.empty() || !range.excludedCells.empty();
}

} // namespace

CellRegion leftOutCells(RangeSet const& ranges, GridSize grid) {
    if (std::none_of(ranges.lines().begin(), ranges.lines().end(), hasExclusions))
        return {};
    return ranges.coverage(grid, false) - ranges.coverage(grid, true);
}
