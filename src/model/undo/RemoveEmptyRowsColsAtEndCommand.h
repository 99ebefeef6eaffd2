#pragma once

#include "model/undo/ContentCommand.h"
#include "storage/TakenLines.h"

/// Removes the empty rows and columns at the end of a table.
class RemoveEmptyRowsColsAtEndCommand : public ContentCommand {
public:
    RemoveEmptyRowsColsAtEndCommand(TableModel* model, RangeSet const& cells, bool changeSelection,
                                    QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;

private:
    TakenLines rows;
    TakenLines cols;
};
