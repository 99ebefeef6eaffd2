#pragma once

#include "core/RangeVector.h"

// Stable sorts for long lists. A Range is a large value: these sort small keys and move each range once, or not at all
// when the list is in order.

void sortByRowThenColumn(RangeVector& ranges);
/// Ranges in the same column keep their order.
void sortByColumn(RangeVector& ranges);
