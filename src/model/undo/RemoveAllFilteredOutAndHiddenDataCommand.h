#pragma once

#include "model/undo/ContentCommand.h"
#include "storage/TakenLines.h"

/// Removes all rows and columns that are concealed. Undo brings them back concealed.
class RemoveAllFilteredOutAndHiddenDataCommand : public ContentCommand {
public:
    RemoveAllFilteredOutAndHiddenDataCommand(TableModel* model, RangeSet const& cells, bool changeSelection,
                                             QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;

private:
    TakenLines rows;
    TakenLines cols;
};
