#pragma once

#include "core/Enumerations.h"
#include "model/undo/CellContentsCommand.h"

/// Copies the text of each cell into its neighbour.
class DuplicateCellContentsCommand : public CellContentsCommand {
public:
    DuplicateCellContentsCommand(TableModel* model, RangeVector const& cells, Direction direction, bool changeSelection,
                                 QUndoCommand* parent = nullptr)
        : CellContentsCommand(model, cells, changeSelection, parent) {
        setText(QStringLiteral("DuplicateCellContentsCommand"));
        int const rows = int(direction == Direction::Down) - int(direction == Direction::Up);
        int const cols = int(direction == Direction::Right) - int(direction == Direction::Left);
        carry(RangeVector(this->cells), rows, cols, false);
    }
};
