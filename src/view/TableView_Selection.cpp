// Moving the main cell and the selection, and selecting. What becomes of the ranges is SelectionMoves'.

#include "model/RangeAxis.h"
#include "view/ScrollGeometry.h"
#include "view/TableView.h"

#include <algorithm>
#include <utility>

// Moving.

void TableView::moveSelectionRelative(int rows, int cols) {
    if (hasContext(Context::CellEditing))
        stopEditing(true);
    TableModel* const model = tableModel();
    bool const anySelected = !model->getSelectedSet().isEmpty();
    int const top = anySelected ? model->findTopOccupiedRow() : model->getMainCell().row;
    int const left = anySelected ? model->findLeftmostOccupiedCol() : model->getMainCell().col;
    if (top + rows < 0 || left + cols < 0)
        return;
    Range const oldMain = model->getMainCell();
    model->moveSelectionRelative(rows, cols);
    Range const& newMain = model->getMainCell();
    if (rows != 0)
        scrollAfterMove(Axis::Rows, oldMain.row, newMain.row);
    if (cols != 0)
        scrollAfterMove(Axis::Columns, oldMain.col, newMain.col);
    refreshView();
}

void TableView::moveSelectionAbsolute(int row, int col) {
    if ((row & col) == -1)
        return;
    Range cell = tableModel()->getMainCell();
    if (row != -1)
        cell.row = row;
    if (col != -1)
        cell.col = col;
    setMainCellAsSelection(cell);
}

/// The main cell with its row or column replaced.
Range TableView::lineCell(Axis axis, int line) const {
    Range const& mainCell = tableModel()->getMainCell();
    Range cell(mainCell.row, mainCell.col, RangeIndexType::Model);
    cell.*rangeAxis(axis).line = line;
    return cell;
}

int TableView::lastDataLine(Axis axis) const {
    TableModel const* const model = tableModel();
    return std::max((axis == Axis::Rows ? model->rowCountModel() : model->columnCountModel()) - 1, 0);
}

void TableView::moveSelectionOneScreen(Direction direction) {
    Axis const axis = SelectionMoves::axisOf(direction);
    int const target = ScrollGeometry::sectionOneScreenOn(scrollAxis(axis), SelectionMoves::isForward(direction));
    if (target < 0)
        return;
    setMainCellAsSelection(lineCell(axis, target));
    scrollToMainCell(true, false);
}

void TableView::goToEdge(Direction direction) {
    Axis const axis = SelectionMoves::axisOf(direction);
    int const line = SelectionMoves::isForward(direction) ? lastDataLine(axis) : 0;
    setMainCellAsSelection(lineCell(axis, line));
    scrollToSection(axis, line, true, false);
    refreshView();
}

void TableView::moveSelectionByBlock(Direction direction) {
    TableModel* const model = tableModel();
    Range const mainCell = model->getMainCell();
    Range target;
    model->getNextBlockLocation(mainCell, target, direction);
    Axis const axis = SelectionMoves::axisOf(direction);
    auto const line = rangeAxis(axis).line;
    Range movedMain = mainCell;
    movedMain.*line = target.*line;
    model->setSelection(movedMain, SelectionMoves::moved(model->getSelectedSet(), axis, target.*line - mainCell.*line));
    scrollAfterMove(axis, mainCell.*line, model->getMainCell().*line);
    refreshView();
}

void TableView::moveSelectionToEndOfTable(Direction direction) {
    TableModel* const model = tableModel();
    Axis const axis = SelectionMoves::axisOf(direction);
    auto const line = rangeAxis(axis).line;
    Range mainCell = model->getMainCell();
    int const target = SelectionMoves::isForward(direction) ? lastDataLine(axis) : 0;
    RangeSet const moved = SelectionMoves::moved(model->getSelectedSet(), axis, target - mainCell.*line);
    mainCell.*line = target;
    model->setSelection(mainCell, moved);
    refreshView();
}

// Selecting.

Range TableView::getMainCell(bool withValue) const {
    Range mainCell = tableModel()->getMainCell();
    if (withValue)
        tableModel()->populateCellDataValues(mainCell, true, false);
    return mainCell;
}

void TableView::setMainCell(Range const& cell) {
    tableModel()->setMainCell(cell);
}

void TableView::setMainCellAsSelection(Range const& cell) {
    tableModel()->setSelection(cell);
    refreshView();
}

void TableView::selectLine(Axis axis, int line) {
    RangeAxis const& names = rangeAxis(axis);
    Range mainCell = names.cell(line, 0);
    mainCell.hasMainCell = true;
    tableModel()->setSelection(RangeVector{Range(line, names.lineType, RangeIndexType::Model), mainCell}, true);
    refreshView();
}

void TableView::selectEntireTable() {
    TableModel* const model = tableModel();
    model->setSelection(model->getMainCell(), RangeVector{Range(RangeType::Table, RangeIndexType::Model)});
    refreshView();
}

void TableView::addWholeTableToSelection() {
    tableModel()->addCellToSelection(Range(RangeType::Table, RangeIndexType::Model));
    refreshView();
}

void TableView::setMultiCellSelection(Range const& mainCell, RangeSet const& ranges) {
    tableModel()->setSelection(mainCell, ranges);
    refreshView();
}

void TableView::selectWholeLines(Axis axis, int start) {
    TableModel const* const model = tableModel();
    setMultiCellSelection(Range(model->getMainCell()),
                          SelectionMoves::wholeLines(model->getSelectedSet(), axis, start));
    emit addContextSignal(Context::MultiCellSelection);
}

void TableView::selectToEdge(Direction direction) {
    TableModel const* const model = tableModel();
    SelectionMoves::TableExtent const extent{model->rowCountModel(), model->columnCountModel(), numHeaderRows,
                                             numHeaderCols};
    setMultiCellSelection(Range(model->getMainCell()),
                          SelectionMoves::toEdge(model->getSelectedSet(), direction, extent));
}

void TableView::selectFromMainCellTo(int row, int col) {
    Range const mainCell = tableModel()->getMainCell();
    Range target = mainCell;
    if (row != -1)
        target.row = row;
    if (col != -1)
        target.col = col;
    setMultiCellSelection(mainCell, SelectionMoves::rectangle(mainCell, target));
}

Range TableView::findFarthestSelectedCellInDirection(Direction direction) const {
    TableModel const* const model = tableModel();
    int const line = SelectionMoves::farthestSelectedLine(model->getSelectedSet(), model->getMainCell(), direction);
    return lineCell(SelectionMoves::axisOf(direction), line);
}
