#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"
#include "model/undo/LineInsertion.h"

#include <vector>

/// Inserts empty rows or columns next to each line that cells touch. The selection goes to the new lines.
class InsertLinesCommand : public ContentCommand {
public:
    /// Inserts `count` lines before or after each line.
    InsertLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count, bool before,
                       bool changeSelection, QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;

private:
    Axis axis;
    std::vector<int> lines;
    LineInsertion insertion;
};

using InsertRowsCommand = AlongAxis<InsertLinesCommand, Axis::Rows>;
using InsertColsCommand = AlongAxis<InsertLinesCommand, Axis::Columns>;
