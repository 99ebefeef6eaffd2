#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"
#include "model/undo/LineInsertion.h"

#include <utility>
#include <vector>

/// Inserts copies of rows or columns: lines that stand together are copied together, behind the last of them. The
/// selection goes to the first copy.
class DuplicateLinesCommand : public ContentCommand {
public:
    /// Makes `count` copies of the lines that the cells touch.
    DuplicateLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count, bool changeSelection,
                          QUndoCommand* parent = nullptr);

protected:
    void apply() override;
    void revert() override;

private:
    void selectCopies();

    Axis axis;
    int count;
    std::vector<std::pair<int, int>> runs; ///< first and last line of what stands together
    LineInsertion insertion;
};

using DuplicateRowsCommand = AlongAxis<DuplicateLinesCommand, Axis::Rows>;
using DuplicateColsCommand = AlongAxis<DuplicateLinesCommand, Axis::Columns>;
