#pragma once

#include "model/undo/ContentCommand.h"
#include "storage/CellPatch.h"

/// Writes new bytes into single cells, as operations on many texts do. Keeps the bytes alone, so that a column of a
/// million cells costs little more than its size in the file; redo and undo are the same exchange.
class WriteCellsCommand : public ContentCommand {
public:
    /// `cells` is what the operation was asked for, and stays selected.
    WriteCellsCommand(TableModel* model, RangeSet const& cells, CellPatch patch, bool changeSelection,
                      QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;
    CellRegion lostCharacters() const override { return CellRegion::ofCells(patch.lossyCells()); }

private:
    void exchange();

    CellPatch patch;
};
