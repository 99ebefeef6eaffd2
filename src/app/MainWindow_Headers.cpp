// Commands for the header rows and columns of the active table. What they set is kept with the file.

#include "app/MainWindow.h"
#include "view/TableView.h"

// The row of the main cell is the last header row then, its column the last header column.

void MainWindow::commandSetHeaderRowsToSelectedRow() {
    activeTable->setNumberOfHeaderRows(activeTable->getMainCell().row + 1, true);
}

void MainWindow::commandSetHeaderColumnsToSelectedColumn() {
    activeTable->setNumberOfHeaderColumns(activeTable->getMainCell().col + 1, true);
}

void MainWindow::commandSetHeadersToSelectedCell() {
    commandSetHeaderRowsToSelectedRow();
    commandSetHeaderColumnsToSelectedColumn();
}

void MainWindow::commandRemoveHeaderRows() {
    activeTable->setNumberOfHeaderRows(0, true);
}

void MainWindow::commandRemoveHeaderColumns() {
    activeTable->setNumberOfHeaderColumns(0, true);
}

void MainWindow::commandRemoveAllHeaders() {
    commandRemoveHeaderRows();
    commandRemoveHeaderColumns();
}

// If only one of the two is frozen, both are then.
void MainWindow::commandToggleFreezeHeaderRowsAndColumns() {
    bool const freeze = !activeTable->areHeaderRowsFrozen() || !activeTable->areHeaderColsFrozen();
    activeTable->setFreezeHeaderRows(freeze, true);
    activeTable->setFreezeHeaderColumns(freeze, true);
}

void MainWindow::commandToggleFreezeHeaderRows() {
    activeTable->setFreezeHeaderRows(!activeTable->areHeaderRowsFrozen(), true);
}

void MainWindow::commandToggleFreezeHeaderColumns() {
    activeTable->setFreezeHeaderColumns(!activeTable->areHeaderColsFrozen(), true);
}

void MainWindow::commandToggleHighlightHeaderRows() {
    activeTable->setHighlightHeaderRows(!activeTable->areHeaderRowsHighlighted(), true);
}

void MainWindow::commandToggleHighlightHeaderColumns() {
    activeTable->setHighlightHeaderColumns(!activeTable->areHeaderColsHighlighted(), true);
}
