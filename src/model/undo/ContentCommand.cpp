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
    model->markLostCharacters(lostCharacters());
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
    model->markLostCharacters({});
    announce();
}

void ContentCommand::removeSurplus(Axis axis, int rawCount) {
    ModelAxis lines(*model, axis);
    int const surplus = lines.rawCount() - rawCount;
    if (surplus <= 0)
        return;
    // What was added stands at the end, where nothing is concealed. The grid had these lines before too, with the sizes
    // that they have.
    LineSizeStore& sizes = model->getTableData().lineSizes(axis);
    LineSizeStore const kept = sizes;
    lines.remove(lines.modelCount() - surplus, surplus);
    sizes = kept;
}

void ContentCommand::announce() {
    refreshView();
    emit model->updateFindReplaceMatchesSignal();
    model->saveAfterEdit();
}
