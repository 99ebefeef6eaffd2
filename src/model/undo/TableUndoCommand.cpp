#include "model/undo/TableUndoCommand.h"

#include "model/TableModel.h"

namespace {

/// A selection needs no contents, which can be large.
RangeVector withoutValues(RangeVector const& ranges) {
    RangeVector bare;
    bare.tableRows = ranges.tableRows;
    bare.tableCols = ranges.tableCols;
    bare.resize(ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i)
        copyWithoutValues(bare[i], ranges[i]);
    return bare;
}

} // namespace

TableUndoCommand::TableUndoCommand(QUndoCommand* parent) : QUndoCommand(parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, QUndoCommand* parent)
    : TableUndoCommand(model, RangeVector(), true, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, bool changeSelection, QUndoCommand* parent)
    : TableUndoCommand(model, RangeVector(), changeSelection, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, RangeVector const& cells, bool changeSelection,
                                   QUndoCommand* parent)
    : TableUndoCommand(model, cells, RangeVector(), changeSelection, parent) {}

TableUndoCommand::TableUndoCommand(TableModel* model, RangeVector const& cells, RangeVector const& oldCells,
                                   bool changeSelection, QUndoCommand* parent)
    : QUndoCommand(parent), model(model), cells(model->getModelRange(cells)), changeSelection(changeSelection) {
    retainModelRowSortData();
    retainModelColSortData();
    if (changeSelection)
        setSelectionCells(cells, oldCells);
}

void TableUndoCommand::setSelectionCells(RangeVector const& cells) {
    newSelection = model->getModelRange(withoutValues(cells));
}

void TableUndoCommand::setSelectionCells(RangeVector const& cells, RangeVector const& oldCells) {
    setSelectionCells(cells);
    oldSelection = model->getModelRange(withoutValues(oldCells));
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
    select(newSelection);
}

void TableUndoCommand::selectOldCells() {
    select(oldSelection.empty() ? newSelection : oldSelection);
}

void TableUndoCommand::select(RangeVector const& ranges) {
    if (changeSelection && !ranges.empty())
        model->setSelection(Selection::withAbsoluteMainCell(ranges), true);
}

void TableUndoCommand::refreshView() {
    if (model->rowCount() > 0 && model->columnCount() > 0)
        emit model->dataChanged(model->index(0, 0), model->index(model->rowCount() - 1, model->columnCount() - 1));
}
