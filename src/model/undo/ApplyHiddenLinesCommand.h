#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/TableUndoCommand.h"

#include <vector>

/// Hides certain rows or columns and shows all others. What of the selection is still in sight stays selected; the
/// contents do not change, so it works on read-only tables too.
class ApplyHiddenLinesCommand : public TableUndoCommand {
public:
    /// `hidden` holds raw lines in ascending order.
    ApplyHiddenLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, std::vector<int> hidden,
                            bool changeSelection, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    void exchange();
    void selectWhatIsLeft();
    void finish();

    Axis axis;
    std::vector<int> hidden; ///< what the next exchange hides
    RangeSet rawSelection;
    Range rawMainCell;
};

using ApplyHiddenRowsCommand = AlongAxis<ApplyHiddenLinesCommand, Axis::Rows>;
using ApplyHiddenColsCommand = AlongAxis<ApplyHiddenLinesCommand, Axis::Columns>;
