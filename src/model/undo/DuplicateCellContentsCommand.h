#pragma once

#include "core/Enumerations.h"
#include "model/undo/CellContentsCommand.h"

/// Copies the text of each cell into its neighbour, or into another cell at the same distance from each.
class DuplicateCellContentsCommand : public CellContentsCommand {
public:
    DuplicateCellContentsCommand(TableModel* model, RangeSet const& cells, Direction direction, bool changeSelection,
                                 QUndoCommand* parent = nullptr)
        : DuplicateCellContentsCommand(
              model, cells, int(direction == Direction::Down) - int(direction == Direction::Up),
              int(direction == Direction::Right) - int(direction == Direction::Left), changeSelection, parent) {}
    DuplicateCellContentsCommand(TableModel* model, RangeSet const& cells, int rows, int cols, bool changeSelection,
                                 QUndoCommand* parent = nullptr)
        : CellContentsCommand(model, cells, changeSelection, parent) {
        setText(QStringLiteral("DuplicateCellContentsCommand"));
        carry(RangeSet(this->cells), rows, cols, false);
    }
};
