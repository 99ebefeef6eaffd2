// Commands on the texts and the places of the selected cells.

#include "app/MainWindow.h"
#include "model/text/CaseConversion.h"
#include "model/text/LeadingZeros.h"
#include "model/text/Uuid.h"
#include "model/undo/DuplicateCellContentsCommand.h"
#include "model/undo/WriteCellsCommand.h"
#include "view/TableView.h"

TableModel* MainWindow::settledModel() {
    activeTable->stopEditing();
    return activeTable->tableModel();
}

void MainWindow::writeCells(CellPatch patch) {
    if (patch.empty()) {
        return;
    }
    TableModel* const model = activeTable->tableModel();
    activeTable->pushUndoCommand(new WriteCellsCommand(model, model->getSelectedSet(), std::move(patch), true));
}

// Texts.

void MainWindow::changeSelectedTexts(TextChange const& change) {
    TableModel* const model = settledModel();
    writeCells(changedTexts(*model, model->getSelectedSet(), change));
}

void MainWindow::commandUpperCase() {
    changeSelectedTexts([](QString const& text) { return text.toUpper(); });
}

void MainWindow::commandLowerCase() {
    changeSelectedTexts([](QString const& text) { return text.toLower(); });
}

void MainWindow::commandTitleCase() {
    changeSelectedTexts(Utilities::convertToTitleCase);
}

void MainWindow::commandUpperCamelCase() {
    changeSelectedTexts(Utilities::convertToUpperCamelCase);
}

void MainWindow::commandLowerCamelCase() {
    changeSelectedTexts(Utilities::convertToLowerCamelCase);
}

void MainWindow::commandUpperSnakeCase() {
    changeSelectedTexts(Utilities::convertToUpperSnakeCase);
}

void MainWindow::commandLowerSnakeCase() {
    changeSelectedTexts(Utilities::convertToLowerSnakeCase);
}

void MainWindow::commandConvertToAcronym() {
    changeSelectedTexts(Utilities::convertToAcronym);
}

void MainWindow::commandTrimSelectedCells() {
    changeSelectedTexts([](QString const& text) { return text.trimmed(); });
}

void MainWindow::commandRemoveLeadingZeros() {
    changeSelectedTexts(Utilities::removeLeadingZeros);
}

void MainWindow::commandFillSelectedCellsWithUuidGuid() {
    UuidType const type = settings.getUuidType();
    changeSelectedTexts([type](QString const&) { return Utilities::generateUuid(false, false, type); });
}

void MainWindow::commandCopyMainCellContentsToAllSelectedCells() {
    TableModel const* const model = settledModel();
    Range const& mainCell = model->getMainCell();
    QString const text = model->getTableData().getValueModel(mainCell.row, mainCell.col).toString();
    changeSelectedTexts([&text](QString const&) { return text; });
}

// Places.

void MainWindow::commandTransposeSelectedCells() {
    TableModel* const model = settledModel();
    RangeSet const selection = model->getSelectedSet();
    CellPatch patch = transposedCells(*model, selection);
    if (patch.empty()) {
        return;
    }
    auto* const command = new WriteCellsCommand(model, selection, std::move(patch), true);
    command->setSelectionCells(transposedRanges(selection.ranges()), selection);
    activeTable->pushUndoCommand(command);
}

void MainWindow::shiftSelectedCells(Axis axis, CellShift shift) {
    TableModel* const model = settledModel();
    writeCells(shiftedCells(*model, model->getSelectedSet(), axis, shift));
}

void MainWindow::commandInsertCellsMoveRestOfRowRight() {
    shiftSelectedCells(Axis::Rows, CellShift::Insert);
}

void MainWindow::commandInsertCellsMoveRestOfColumnDown() {
    shiftSelectedCells(Axis::Columns, CellShift::Insert);
}

void MainWindow::commandRemoveSelectedCellsMoveRestOfRowLeft() {
    shiftSelectedCells(Axis::Rows, CellShift::Remove);
}

void MainWindow::commandRemoveSelectedCellsMoveRestOfColumnUp() {
    shiftSelectedCells(Axis::Columns, CellShift::Remove);
}

void MainWindow::commandRemoveSelectedCellsAndTheRestOfTheirRows() {
    shiftSelectedCells(Axis::Rows, CellShift::ClearRest);
}

void MainWindow::commandRemoveSelectedCellsAndTheRestOfTheirColumns() {
    shiftSelectedCells(Axis::Columns, CellShift::ClearRest);
}

void MainWindow::duplicateSelectedContents(Direction direction) {
    TableModel* const model = settledModel();
    activeTable->pushUndoCommand(new DuplicateCellContentsCommand(model, model->getSelectedSet(), direction, true));
}

void MainWindow::commandDuplicateSelectedCellContentsUp() {
    duplicateSelectedContents(Direction::Up);
}

void MainWindow::commandDuplicateSelectedCellContentsDown() {
    duplicateSelectedContents(Direction::Down);
}

void MainWindow::commandDuplicateSelectedCellContentsLeft() {
    duplicateSelectedContents(Direction::Left);
}

void MainWindow::commandDuplicateSelectedCellContentsRight() {
    duplicateSelectedContents(Direction::Right);
}
