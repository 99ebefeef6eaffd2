#pragma once

#include "model/undo/TableUndoCommand.h"

/// Selects other cells, so that undo of what follows it in a macro ends with the selection that the user had.
class ChangeSelectionCommand : public TableUndoCommand {
public:
    ChangeSelectionCommand(TableModel* model, RangeVector const& oldCells, RangeVector const& newCells,
                           QUndoCommand* parent = nullptr)
        : TableUndoCommand(model, newCells, oldCells, true, parent) {
        setText(QStringLiteral("ChangeSelectionCommand"));
    }

    void undo() override { selectOldCells(); }
    void redo() override { selectNewCells(); }
};
