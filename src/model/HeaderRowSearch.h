#pragma once

#include <QString>

#include <functional>
#include <vector>

/// Where a row of column titles was found.
struct HeaderRowMatch {
    int row = -1;             ///< -1 if there is no such row
    std::vector<int> columns; ///< the column of each name, -1 for a name that the row does not hold
};

/// Finds the first of `rows` rows whose first `cols` cells hold at least `required` of the names, in any order; a
/// `required` of -1 means all. `cell` gives the text at a row and column.
HeaderRowMatch findHeaderRow(std::vector<QString> const& names, int required, int rows, int cols,
                             std::function<QString(int row, int col)> const& cell);
