#pragma once

#include "model/RangeSet.h"
#include "storage/CellPatch.h"

#include <QString>

#include <functional>

class TableModel;

/// What makes a new text of a cell's present one.
using TextChange = std::function<QString(QString const& text)>;

/// The new bytes of those cells that `change` changes among the cells of `ranges`, row by row. Whole rows and columns
/// go as far as the data; single cells may lie beyond it.
CellPatch changedTexts(TableModel const& model, RangeSet const& ranges, TextChange const& change);

/// The cells of `ranges` with rows and columns exchanged around their top left cell. What was in the way is
/// overwritten, places that are left become empty.
CellPatch transposedCells(TableModel const& model, RangeSet const& ranges);
/// The same of the ranges themselves.
RangeVector transposedRanges(RangeVector const& ranges);
