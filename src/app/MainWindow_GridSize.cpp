// The sizes of the active table's rows and columns.

#include "app/MainWindow.h"
#include "view/TableView.h"

void MainWindow::commandToggleAutoFitRowHeight() {
    activeTable->setAutoFitRowHeight(!activeTable->isAutoFitRowHeight(), true);
}

void MainWindow::commandToggleAutoFitColumnWidth() {
    activeTable->setAutoFitColWidth(!activeTable->isAutoFitColWidth(), true);
}
