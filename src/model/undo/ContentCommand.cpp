#include "model/undo/ContentCommand.h"

#include "model/TableModel.h"
#include "model/undo/ModelAxis.h"

void ContentCommand::redo() {
    int const rows = model->rowCountRaw();
    int const cols = model->columnCountRaw();
    apply();
    model->enforceTableSize();
    rowsAdded = model->rowCountRaw() - rows;
    colsAdded = model->columnCountRaw() - cols;
    clearModelRowSortData();
    clearModelColSortData();
    firstRedo = false;
    announce();
}

// The sizes to return to are worked out before the old contents are written, for the writing can add lines of its own:
// a whole row fills all columns of the grid, also those that redo made.
void ContentCommand::undo() {
    int const rows = model->rowCountRaw() - rowsAdded;
    int const cols = model->columnCountRaw() - colsAdded;
    revert();
    removeSurplus(Axis::Rows, rows);
    removeSurplus(Axis::Columns, cols);
    model->enforceTableSize();
    restoreRowSortDataToModel();
    restoreColSortDataToModel();
    announce();
}

void ContentCommand::removeSurplus(Axis axis, int rawCount) {
    ModelAxis lines(*model, axis);
    int const surplus = lines.rawCount() - rawCount;
    // What was added stands at the end, where nothing is concealed.
    if (surplus > 0)
        lines.remove(lines.modelCount() - surplus, surplus);
}

void ContentCommand::announce() {
    refreshView();
    emit model->updateFindReplaceMatchesSignal();
    model->saveAfterEdit();
}
