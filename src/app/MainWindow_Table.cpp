// Commands that change the active table.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "model/undo/DuplicateLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveCellContentsCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/TransposeTableCommand.h"
#include "view/LeftOutQuestion.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QPointer>

template <class Command, class... Arguments>
void MainWindow::push(Arguments... arguments) {
    activeTable->stopEditing();
    TableModel* const model = activeTable->tableModel();
    activeTable->pushUndoCommand(new Command(model, model->getSelectedSet(), arguments..., true));
}

void MainWindow::commandUndo() {
    activeTable->stopEditing();
    activeTable->undo();
}

void MainWindow::commandRedo() {
    activeTable->stopEditing();
    activeTable->redo();
}

void MainWindow::commandEditSelectedCell() {
    activeTable->editMainCellAppend();
}

void MainWindow::commandStopEditing() {
    activeTable->stopEditing();
}

void MainWindow::commandClearCellContentsNavigate() {
    QPointer<TableView> const table = activeTable;
    std::optional<LeftOut> leftOut = LeftOut::Change;
    if (!table->isReadOnly() && !table->isLoading())
        leftOut = askAboutLeftOutCells(table, *table->tableModel(), table->tableModel()->getSelectedSet(), QString());
    if (!leftOut || table.isNull())
        return;
    TableModel* const model = table->tableModel();
    table->pushUndoCommand(new SetModelDataCommand(model, model->getSelectedSet(), QString(), true, *leftOut));
}

void MainWindow::commandInsertRowsBefore() {
    push<InsertRowsCommand>(1, true);
}

void MainWindow::commandInsertColumnsBefore() {
    push<InsertColsCommand>(1, true);
}

void MainWindow::commandInsertRowsAfter() {
    push<InsertRowsCommand>(1, false);
}

void MainWindow::commandInsertColumnsAfter() {
    push<InsertColsCommand>(1, false);
}

void MainWindow::commandRemoveRows() {
    push<RemoveRowsCommand>(1);
}

void MainWindow::commandRemoveColumns() {
    push<RemoveColsCommand>(1);
}

void MainWindow::commandDuplicateRows() {
    push<DuplicateRowsCommand>(1);
}

void MainWindow::commandDuplicateColumns() {
    push<DuplicateColsCommand>(1);
}

void MainWindow::commandMoveRowsUp() {
    push<MoveRowsRelativeCommand>(-1);
}

void MainWindow::commandMoveRowsDown() {
    push<MoveRowsRelativeCommand>(1);
}

void MainWindow::commandMoveColumnsLeft() {
    push<MoveColsRelativeCommand>(-1);
}

void MainWindow::commandMoveColumnsRight() {
    push<MoveColsRelativeCommand>(1);
}

void MainWindow::commandMoveCellContentsUp() {
    push<MoveCellContentsCommand>(-1, 0);
}

void MainWindow::commandMoveCellContentsDown() {
    push<MoveCellContentsCommand>(1, 0);
}

void MainWindow::commandMoveCellContentsLeft() {
    push<MoveCellContentsCommand>(0, -1);
}

void MainWindow::commandMoveCellContentsRight() {
    push<MoveCellContentsCommand>(0, 1);
}

void MainWindow::commandTransposeTable() {
    TableModel const& model = *settledModel();
    if (model.rowCountRaw() > model.getLoadLimits().columns) {
        MsgBox::inform(this, theme,
                       tr("This table has too many rows to be transposed. A table can show no more than %L1 columns.")
                           .arg(model.getLoadLimits().columns));
        return;
    }
    push<TransposeTableCommand>();
}

void MainWindow::commandToggleShowEditorPane() {
    paneView->showEditorPane(!paneView->isEditorPaneShown(), true);
}
