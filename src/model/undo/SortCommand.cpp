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

void SortCommand::announce() {
    refreshView();
    model->enforceAutoFitAll(sort.axis);
    emit model->updateFindReplaceMatchesSignal();
    model->saveAfterEdit();
}
