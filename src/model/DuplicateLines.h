#pragma once

#include "core/Enumerations.h"

#include <vector>

class TableModel;

/// Finds rows or columns with the same contents behind the header. Contents are compared as a line's bytes one cell
/// behind the other, without regard to where a cell ends, so "ab" and "c" are the same as "a" and "bc".
///
/// Gives the (Model) lines that repeat an earlier visible line, ascending. Only the raw cells of `crossing` count: the
/// columns, if lines are rows; null stands for all, also concealed ones.
std::vector<int> findDuplicateLines(TableModel const& model, Axis axis, std::vector<int> const* crossing);
