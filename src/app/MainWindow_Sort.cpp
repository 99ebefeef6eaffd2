// Sorting, by the commands.

#include "app/MainWindow.h"
#include "model/SelectionOrder.h"
#include "view/TableView.h"

namespace {

constexpr int readOnlyMessageMs = 10000;

} // namespace

void MainWindow::sortBySelectedLine(Axis axis, SortType type) {
    TableModel const& model = *activeTable->tableModel();
    TableData const& data = model.getTableData();
    Range const& mainCell = model.getMainCell();
    int const raw = axis == Axis::Rows ? data.getRawFromModelCol(mainCell.col) : data.getRawFromModelRow(mainCell.row);
    activeTable->sortRowsOrCols({type, axis, raw});
}

void MainWindow::sortSelectedCells(Axis axis, SortType type) {
    TableModel const* const model = settledModel();
    if (activeTable->isReadOnly()) {
        labelBar->showMessage(tr("This table is read-only: its cells keep their contents."), readOnlyMessageMs);
        return;
    }
    writeCells(sortedCells(*model, model->getSelectedSet(), axis, type));
}

void MainWindow::commandSortSelectedColumnAscending() {
    sortBySelectedLine(Axis::Rows, SortType::Ascending);
}

void MainWindow::commandSortSelectedColumnDescending() {
    sortBySelectedLine(Axis::Rows, SortType::Descending);
}

void MainWindow::commandSortSelectedRowAscending() {
    sortBySelectedLine(Axis::Columns, SortType::Ascending);
}

void MainWindow::commandSortSelectedRowDescending() {
    sortBySelectedLine(Axis::Columns, SortType::Descending);
}

void MainWindow::commandSortSelectedCellsHorizontallyAscending() {
    sortSelectedCells(Axis::Rows, SortType::Ascending);
}

void MainWindow::commandSortSelectedCellsHorizontallyDescending() {
    sortSelectedCells(Axis::Rows, SortType::Descending);
}

void MainWindow::commandSortSelectedCellsVerticallyAscending() {
    sortSelectedCells(Axis::Columns, SortType::Ascending);
}

void MainWindow::commandSortSelectedCellsVerticallyDescending() {
    sortSelectedCells(Axis::Columns, SortType::Descending);
}
