// Commands that hide and show rows and columns of the active table.

#include "app/MainWindow.h"
#include "model/HiddenLines.h"
#include "model/undo/ApplyHiddenLinesCommand.h"
#include "model/undo/RemoveAllFilteredOutAndHiddenDataCommand.h"
#include "view/TableView.h"

void MainWindow::applyHidden(Axis axis, std::vector<int> const& hidden) {
    TableModel* const model = activeTable->tableModel();
    if (hidden != HiddenLines(*model, axis).present()) {
        activeTable->pushUndoCommand(new ApplyHiddenLinesCommand(axis, model, model->getSelectedSet(), hidden, true));
    }
}

void MainWindow::commandHideSelectedRows() {
    applyHidden(Axis::Rows, HiddenLines(*settledModel(), Axis::Rows).withSelected());
}

void MainWindow::commandHideSelectedColumns() {
    applyHidden(Axis::Columns, HiddenLines(*settledModel(), Axis::Columns).withSelected());
}

void MainWindow::commandHideAllButSelectedRows() {
    applyHidden(Axis::Rows, HiddenLines(*settledModel(), Axis::Rows).withAllButSelected());
}

void MainWindow::commandHideAllButSelectedColumns() {
    applyHidden(Axis::Columns, HiddenLines(*settledModel(), Axis::Columns).withAllButSelected());
}

void MainWindow::commandHideEmptyRows() {
    applyHidden(Axis::Rows, HiddenLines(*settledModel(), Axis::Rows).withEmpty());
}

void MainWindow::commandHideEmptyColumns() {
    applyHidden(Axis::Columns, HiddenLines(*settledModel(), Axis::Columns).withEmpty());
}

void MainWindow::commandShowAllHiddenRows() {
    settledModel();
    applyHidden(Axis::Rows, {});
}

void MainWindow::commandShowAllHiddenColumns() {
    settledModel();
    applyHidden(Axis::Columns, {});
}

void MainWindow::commandShowHiddenRowsInSelection() {
    applyHidden(Axis::Rows, HiddenLines(*settledModel(), Axis::Rows).withoutThoseInSelection());
}

void MainWindow::commandShowHiddenColumnsInSelection() {
    applyHidden(Axis::Columns, HiddenLines(*settledModel(), Axis::Columns).withoutThoseInSelection());
}

void MainWindow::commandShowEmptyRows() {
    applyHidden(Axis::Rows, HiddenLines(*settledModel(), Axis::Rows).withoutEmpty());
}

void MainWindow::commandShowEmptyColumns() {
    applyHidden(Axis::Columns, HiddenLines(*settledModel(), Axis::Columns).withoutEmpty());
}

void MainWindow::commandRemoveAllFilteredOutAndHiddenData() {
    TableModel* const model = settledModel();
    if (model->hasHiddenLines()) {
        activeTable->pushUndoCommand(
            new RemoveAllFilteredOutAndHiddenDataCommand(model, model->getSelectedSet(), true));
    }
}
