#pragma once

#include "model/RangeSet.h"

/// Restores the rules of a selection: nothing twice, nothing that lies in a whole line or table beside it, and a range
/// that holds the main cell. Returns whether the main cell had to be added. Throws std::runtime_error without one.
bool sanitizeRanges(RangeSet& ranges, Range& mainCell);
