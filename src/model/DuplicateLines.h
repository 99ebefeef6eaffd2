#pragma once

#include "core/Enumerations.h"

#include <vector>

class TableModel;

/// Finds rows or columns behind the header that are equal cell by cell, as the bytes of the file. A cell that a short
/// row lacks is an empty one.
///
/// Gives the (Model) lines that repeat an earlier visible line, ascending. Only the raw cells of `crossing` count: the
/// columns, if lines are rows; null stands for all, also concealed ones.
std::vector<int> findDuplicateLines(TableModel const& model, Axis axis, std::vector<int> const* crossing);
