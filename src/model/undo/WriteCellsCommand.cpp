#include "model/undo/WriteCellsCommand.h"

#include "model/TableModel.h"

#include <utility>

WriteCellsCommand::WriteCellsCommand(TableModel* model, RangeSet const& cells, CellPatch patch, bool changeSelection,
                                     QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), patch(std::move(patch)) {
    setText(QStringLiteral("WriteCellsCommand"));
    if (changeSelection)
        setSelectionCells(cells, cells);
}

void WriteCellsCommand::apply() {
    exchange();
    selectNewCells();
}

void WriteCellsCommand::revert() {
    exchange();
    selectOldCells();
}

// The grid takes its size before cells are selected, which can lie where it has just grown.
void WriteCellsCommand::exchange() {
    model->getTableData().exchange(patch);
    model->enforceTableSize();
    model->enforceAutoFitOnModel(cells);
}
