#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"
#include "storage/CellPatch.h"

class TableModel;

/// The new bytes of the cells of `ranges` when those in each row (with Axis::Columns, in each column) are put in order
/// among themselves. Whole rows and columns go as far as the data.
CellPatch sortedCells(TableModel const& model, RangeSet const& ranges, Axis axis, SortType type);
