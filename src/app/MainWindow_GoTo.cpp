// Commands on the active table that ask for a place in it or for a count.

#include "app/MainWindow.h"
#include "app/prompts/CellPrompts.h"
#include "app/prompts/RepeatPrompts.h"
#include "view/TableView.h"

void MainWindow::commandGoToCell() {
    activeTable->stopEditing();
    ask(Prompts::goToCell(activeTable));
}

void MainWindow::commandSelectFromMainCellTo() {
    activeTable->stopEditing();
    ask(Prompts::selectFromMainCellTo(activeTable));
}

void MainWindow::commandMoveCellContentsTo() {
    activeTable->stopEditing();
    ask(Prompts::moveCellContentsTo(activeTable));
}

void MainWindow::commandDuplicateCellContentsTo() {
    activeTable->stopEditing();
    ask(Prompts::duplicateCellContentsTo(activeTable));
}

void MainWindow::commandMoveRowsJustAboveRow() {
    activeTable->stopEditing();
    ask(Prompts::moveLinesBefore(Axis::Rows, activeTable));
}

void MainWindow::commandMoveColumnsToTheLeftOfColumn() {
    activeTable->stopEditing();
    ask(Prompts::moveLinesBefore(Axis::Columns, activeTable));
}

void MainWindow::commandInsertRowsBeforeMultipleTimes() {
    activeTable->stopEditing();
    ask(Prompts::insertLinesBefore(Axis::Rows, activeTable));
}

void MainWindow::commandInsertColumnsBeforeMultipleTimes() {
    activeTable->stopEditing();
    ask(Prompts::insertLinesBefore(Axis::Columns, activeTable));
}

void MainWindow::commandDuplicateRowsMultipleTimes() {
    activeTable->stopEditing();
    ask(Prompts::duplicateLines(Axis::Rows, activeTable));
}

void MainWindow::commandDuplicateColumnsMultipleTimes() {
    activeTable->stopEditing();
    ask(Prompts::duplicateLines(Axis::Columns, activeTable));
}
