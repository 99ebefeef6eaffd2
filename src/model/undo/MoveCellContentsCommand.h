#pragma once

#include "model/undo/CellContentsCommand.h"

/// Moves the texts of cells by a number of rows and columns and leaves empty cells behind.
class MoveCellContentsCommand : public CellContentsCommand {
public:
    MoveCellContentsCommand(TableModel* model, RangeSet const& cells, int rows, int cols, bool changeSelection,
                            QUndoCommand* parent = nullptr)
        : CellContentsCommand(model, cells, changeSelection, parent) {
        setText(QStringLiteral("MoveCellContentsCommand"));
        carry(RangeSet(this->cells), rows, cols, true);
    }
};
