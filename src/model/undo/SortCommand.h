#pragma once

#include "model/undo/TableUndoCommand.h"

#include <algorithm>
#include <vector>

/// Sorts the rows by a column or the columns by a row. Keeps the order alone, no cells.
class SortCommand : public TableUndoCommand {
public:
    /// Works the order out, which can take a while; see TableModel::getSortIndexes. The key line is Raw.
    SortCommand(TableModel* model, SortData const& sort, QUndoCommand* parent = nullptr);

    /// The user has canceled, and there is nothing to carry out.
    bool isCanceled() const { return order.empty(); }
    /// False if the lines were in that order already.
    bool movesLines() const { return !std::is_sorted(order.begin(), order.end()); }

    void redo() override;
    void undo() override;

private:
    void announce();

    SortData sort;
    std::vector<int> order;
};
