#pragma once

#include "core/RangeVector.h"

/// Brings a selection in Model index into the form that the program relies on: no repetition, no single cell that a
/// selected table, row or column holds anyway, the ranges with the main cell flagged and told where in them it lies,
/// the main cell added when no range holds it. The list ends in order of columns, and of rows within a column.
/// Throws std::runtime_error when `mainCell` has a row or column of -1.
void sanitizeRanges(RangeVector& ranges, Range& mainCell);
