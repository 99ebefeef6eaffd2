#include "model/undo/SortCommand.h"

#include "model/TableModel.h"

SortCommand::SortCommand(TableModel* model, SortData const& sort, QUndoCommand* parent)
    : TableUndoCommand(model, false, parent), sort(sort), order(model->getSortIndexes(sort)) {}

void SortCommand::redo() {
    model->sortLines(order, sort);
    announce();
}

void SortCommand::undo() {
    model->unsortLines(order, sort.axis);
    announce();
}

// The selection stays where it is, and nothing else tells the editor pane that another text has come into the main
// cell.
void SortCommand::announce() {
    refreshView();
    model->onMainCellChanged();
    model->enforceAutoFitAll(sort.axis);
    emit model->updateFindReplaceMatchesSignal();
    model->saveAfterEdit();
}
