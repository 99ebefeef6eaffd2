#include "model/undo/TableUndoCommand.h"

#include "model/TableModel.h"

TableUndoCommand::TableUndoCommand(QUndoCommand* parent) : QUndoCommand(parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, QUndoCommand* parent)
    : TableUndoCommand(model, RangeSet(), true, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, bool changeSelection, QUndoCommand* parent)
    : TableUndoCommand(model, RangeSet(), changeSelection, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, RangeSet const& cells, bool changeSelection, QUndoCommand* parent)
    : TableUndoCommand(model, cells, RangeSet(), changeSelection, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, RangeSet const& cells, RangeSet const& oldCells,
                                   bool changeSelection, QUndoCommand* parent)
    : QUndoCommand(parent), model(model), cells(model->getModelRange(cells)), changeSelection(changeSelection) {
    retainModelRowSortData();
    retainModelColSortData();
    if (changeSelection)
        setSelectionCells(cells, oldCells);
}

void TableUndoCommand::setSelectionCells(RangeSet const& cells) {
    newSelection = model->getModelRange(cells);
}

void TableUndoCommand::setSelectionCells(RangeSet const& cells, RangeSet const& oldCells) {
    setSelectionCells(cells);
    oldSelection = model->getModelRange(oldCells);
}

void TableUndoCommand::retainModelRowSortData() {
    rowSortData = model->getRowSortData();
}

void TableUndoCommand::retainModelColSortData() {
    colSortData = model->getColSortData();
}

void TableUndoCommand::clearModelRowSortData() {
    model->setRowSortData({SortType::None, Axis::Columns, -1});
}

void TableUndoCommand::clearModelColSortData() {
    model->setColSortData({SortType::None, Axis::Rows, -1});
}

void TableUndoCommand::restoreRowSortDataToModel() {
    model->setRowSortData(rowSortData);
}

void TableUndoCommand::restoreColSortDataToModel() {
    model->setColSortData(colSortData);
}

void TableUndoCommand::selectNewCells() {
    // A command that selects nothing leaves the selection that it was made with.
    select(newSelection.isEmpty() ? oldSelection : newSelection);
}

void TableUndoCommand::selectOldCells() {
    select(oldSelection.isEmpty() ? newSelection : oldSelection);
}

void TableUndoCommand::select(RangeSet const& ranges) {
    if (!changeSelection || ranges.isEmpty())
        return;
    auto const [row, col] = ranges.mainCell().value_or(std::pair(0, 0));
    model->setSelection(Range(row, col, RangeIndexType::Model), ranges);
    // A selection behind the data may come back after the grid has become smaller.
    if (row >= model->rowCount() || col >= model->columnCount())
        model->enforceTableSize();
}

void TableUndoCommand::refreshView() {
    if (model->rowCount() > 0 && model->columnCount() > 0)
        emit model->dataChanged(model->index(0, 0), model->index(model->rowCount() - 1, model->columnCount() - 1));
}
