#pragma once

#include "model/undo/CellContentsCommand.h"

/// Writes a pasted block of texts with its top left corner at the main cell; a single text goes into the main cell
/// alone, whatever else is selected.
class PasteCommand : public CellContentsCommand {
public:
    /// `cells` hold the texts, placed relative to one another; `oldCells` is the selection that undo returns to.
    PasteCommand(TableModel* model, RangeVector const& cells, RangeVector const& oldCells, bool changeSelection,
                 QUndoCommand* parent = nullptr);
};
