#pragma once

#include "model/undo/ContentCommand.h"

/// Exchanges the rows and columns of a table.
class TransposeTableCommand : public ContentCommand {
public:
    /// `cells` is the selection, which is transposed with the table.
    TransposeTableCommand(TableModel* model, RangeSet const& cells, bool changeSelection,
                          QUndoCommand* parent = nullptr);

    bool changesCells() const override { return false; }

protected:
    void apply() override;
    void revert() override;

private:
    void transpose();
};
