#include "model/undo/TransposeTableCommand.h"

#include "model/undo/ModelAxis.h"

TransposeTableCommand::TransposeTableCommand(TableModel* model, RangeSet const& cells, bool changeSelection,
                                             QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent) {
    setText(QStringLiteral("TransposeTableCommand"));
    RangeVector transposed;
    for (Range const& range : this->cells.ranges())
        transposed.push_back(RangeVector::transposeRange(range));
    setSelectionCells(transposed, this->cells);
}

void TransposeTableCommand::apply() {
    transpose();
    selectNewCells();
}

void TransposeTableCommand::revert() {
    transpose();
    selectOldCells();
}

void TransposeTableCommand::transpose() {
    model->toggleTranspose();
    // The buffers of rows and columns differ, and the selection may only name cells that are there.
    model->enforceTableSize();
    ModelAxis(*model, Axis::Rows).fitAll();
    ModelAxis(*model, Axis::Columns).fitAll();
}
