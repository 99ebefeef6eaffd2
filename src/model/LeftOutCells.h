#pragma once

#include "model/RangeSet.h"

/// What a change of many cells does with those that were taken out of its ranges.
enum class LeftOut { Change, Leave };

/// The cells that lie in the extent of a range but were taken out of it and are in no other one: not shown as selected,
/// and yet changed by what does not regard exclusions. Nothing is built for ranges without exclusions.
CellRegion leftOutCells(RangeSet const& ranges, GridSize grid);
