#pragma once

#include "storage/LoadResult.h"

#include <algorithm>
#include <climits>
#include <cstdint>

/// How many rows and columns a grid can show. Qt counts the pixels from the first line to the last in an int.
namespace GridLimits {

/// Half of the pixels are left for lines that grow.
constexpr int linesOf(int defaultSize) {
    return INT_MAX / 2 / std::max(defaultSize, 1);
}

/// The size of the lines of a grid whose data have `dataLines`: as wanted, or as much as lets all of them be shown.
constexpr int sizeOf(int wantedSize, int dataLines) {
    return std::min(wantedSize, std::max(linesOf(dataLines), 1));
}

/// The most that lines with sizes of their own may take, of which there are `count` with `total` pixels together: the
/// half that the others leave.
constexpr int mostOf(int count, std::int64_t total) {
    return total <= INT_MAX / 2 ? INT_MAX : sizeOf(INT_MAX, count);
}

constexpr LoadLimits of(int defaultRowHeight, int defaultColumnWidth) {
    return {linesOf(defaultRowHeight), linesOf(defaultColumnWidth)};
}

} // namespace GridLimits
