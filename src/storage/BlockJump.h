#pragma once

#include <functional>

/// Where a jump over a block of cells lands on a line of `count` cells: at the next edge between populated and empty
/// cells seen from cell `from` in the direction of `step`, 1 or -1. From the end of a block it goes to the start of
/// the next one; with no block behind it to the end of the line, and then the answer can be -1 or, from the last cell
/// but one, `count`: callers limit it. `from` itself if it has no neighbour.
int blockJump(int from, int step, int count, std::function<bool(int)> const& populated);
