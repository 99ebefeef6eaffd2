#pragma once

#include <QString>

class TableModel;

/// A cell, row or column of a table, in Model indexes; -1 for what the user has left out.
struct CellTarget {
    int row = -1;
    int col = -1;

    /// The place that an address in the user's numbers names. What lies before the table means its first line, what
    /// lies far behind it a line from which the grid is still of a size to work with, and what is concealed the nearest
    /// line in front of it.
    static CellTarget fromUser(TableModel const& model, int userRow, int userCol);
    /// Reads an address; see Utilities::parseCellLocationString.
    static CellTarget fromText(TableModel const& model, QString const& text, bool loneNumberIsColumn);
};
