#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"
#include "model/undo/LineGaps.h"
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
    LineGaps visible;                       ///< the removed lines that are not concealed
    std::vector<std::pair<int, int>> sizes; ///< of removed lines in the view
};

using RemoveRowsCommand = AlongAxis<RemoveLinesCommand, Axis::Rows>;
using RemoveColsCommand = AlongAxis<RemoveLinesCommand, Axis::Columns>;
