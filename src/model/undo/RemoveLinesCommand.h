#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"
#include "storage/TakenLines.h"

#include <vector>

/// Removes rows or columns and keeps them for undo as blocks of bytes.
class RemoveLinesCommand : public ContentCommand {
public:
    /// Removes `count` lines from each line on that the cells touch.
    RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count, bool changeSelection,
                       QUndoCommand* parent = nullptr);
    /// Removes the given (Raw) lines.
    RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, std::vector<int> const& rawLines,
                       bool changeSelection, QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;

private:
    TakenLines lines;
};

using RemoveRowsCommand = AlongAxis<RemoveLinesCommand, Axis::Rows>;
using RemoveColsCommand = AlongAxis<RemoveLinesCommand, Axis::Columns>;
