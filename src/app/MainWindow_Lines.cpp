// Commands on whole rows and columns that are found by what they hold.

#include "app/MainWindow.h"
#include "model/DuplicateLines.h"
#include "model/undo/ModelAxis.h"
#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "view/TableView.h"

namespace {

/// The lines of the data that the selection touches.
std::vector<int> selectedLines(TableModel& model, Axis axis) {
    ModelAxis const lines(model, axis);
    std::vector<int> selected = lines.touchedLines(model.getSelectedSet());
    std::erase_if(selected, [&lines](int line) { return line < 0 || line >= lines.modelCount(); });
    return selected;
}

Axis across(Axis axis) {
    return axis == Axis::Rows ? Axis::Columns : Axis::Rows;
}

int headerLines(TableModel const& model, Axis axis) {
    return axis == Axis::Rows ? model.getNumVisibleHeaderRows() : model.getNumHeaderCols();
}

} // namespace

std::vector<int> MainWindow::duplicateLines(Axis axis, Basis basis) {
    TableModel* const model = settledModel();
    if (basis == Basis::WholeLines) {
        return findDuplicateLines(*model, axis, nullptr);
    }
    ModelAxis const crossing(*model, across(axis));
    std::vector<int> const counting = crossing.rawFromModel(selectedLines(*model, across(axis)));
    return counting.empty() ? std::vector<int>() : findDuplicateLines(*model, axis, &counting);
}

void MainWindow::removeLines(Axis axis, std::vector<int> const& modelLines) {
    if (modelLines.empty()) {
        return;
    }
    TableModel* const model = activeTable->tableModel();
    std::vector<int> const rawLines = ModelAxis(*model, axis).rawFromModel(modelLines);
    activeTable->pushUndoCommand(new RemoveLinesCommand(axis, model, model->getSelectedSet(), rawLines, true));
}

void MainWindow::selectLines(Axis axis, std::vector<int> const& modelLines) {
    if (modelLines.empty()) {
        return;
    }
    RangeVector ranges;
    ranges.reserve(modelLines.size());
    for (int const line : modelLines) {
        ranges.emplace_back(line, rangeAxis(axis).lineType, RangeIndexType::Model);
    }
    int const first = modelLines.front();
    TableModel* const model = activeTable->tableModel();
    model->setSelection(Range(axis == Axis::Rows ? first : 0, axis == Axis::Rows ? 0 : first, RangeIndexType::Model),
                        ranges);
    activeTable->scrollToMainCell(true, false);
    activeTable->refreshView();
}

// Only a header that is empty as a whole goes with the empty lines: one that lacks a name is still the header.
void MainWindow::removeEmptyLines(Axis axis, Basis basis) {
    TableModel* const model = settledModel();
    bool const selectedOnly = basis == Basis::SelectedCellsOnly;
    std::vector<int> const counting = selectedOnly ? selectedLines(*model, across(axis)) : std::vector<int>();
    if (selectedOnly && counting.empty()) {
        return;
    }
    GetRowColMaskType const mask = selectedOnly ? GetRowColMaskType::Include : GetRowColMaskType::NoMask;
    std::vector<int> empty = axis == Axis::Rows ? model->getEmptyRowsModel(false, mask, counting)
                                                : model->getEmptyColumnsModel(false, mask, counting);
    if (selectedOnly) {
        std::erase_if(empty, [header = headerLines(*model, axis)](int line) { return line < header; });
    }
    removeLines(axis, empty);
}

void MainWindow::commandRemoveDuplicateRows() {
    removeLines(Axis::Rows, duplicateLines(Axis::Rows, Basis::WholeLines));
}

void MainWindow::commandRemoveDuplicateColumns() {
    removeLines(Axis::Columns, duplicateLines(Axis::Columns, Basis::WholeLines));
}

void MainWindow::commandRemoveDuplicateRowsBasedOnSelectedColumnsOnly() {
    removeLines(Axis::Rows, duplicateLines(Axis::Rows, Basis::SelectedCellsOnly));
}

void MainWindow::commandRemoveDuplicateColumnsBasedOnSelectedRowsOnly() {
    removeLines(Axis::Columns, duplicateLines(Axis::Columns, Basis::SelectedCellsOnly));
}

void MainWindow::commandSelectDuplicateRows() {
    selectLines(Axis::Rows, duplicateLines(Axis::Rows, Basis::WholeLines));
}

void MainWindow::commandSelectDuplicateColumns() {
    selectLines(Axis::Columns, duplicateLines(Axis::Columns, Basis::WholeLines));
}

void MainWindow::commandSelectDuplicateRowsBasedOnSelectedColumnsOnly() {
    selectLines(Axis::Rows, duplicateLines(Axis::Rows, Basis::SelectedCellsOnly));
}

void MainWindow::commandSelectDuplicateColumnsBasedOnSelectedRowsOnly() {
    selectLines(Axis::Columns, duplicateLines(Axis::Columns, Basis::SelectedCellsOnly));
}

void MainWindow::commandRemoveEmptyRows() {
    removeEmptyLines(Axis::Rows, Basis::WholeLines);
}

void MainWindow::commandRemoveEmptyColumns() {
    removeEmptyLines(Axis::Columns, Basis::WholeLines);
}

void MainWindow::commandRemoveEmptyRowsBasedOnSelectedColumnsOnly() {
    removeEmptyLines(Axis::Rows, Basis::SelectedCellsOnly);
}

void MainWindow::commandRemoveEmptyColumnsBasedOnSelectedRowsOnly() {
    removeEmptyLines(Axis::Columns, Basis::SelectedCellsOnly);
}

void MainWindow::commandRemoveExtraneousRowsAndColumns() {
    TableModel* const model = settledModel();
    if (model->numEmptyRowsRawAtEnd() > 0 || model->numEmptyColumnsRawAtEnd() > 0) {
        activeTable->pushUndoCommand(new RemoveEmptyRowsColsAtEndCommand(model, model->getSelectedSet(), true));
    }
}
