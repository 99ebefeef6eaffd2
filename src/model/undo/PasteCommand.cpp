#include "model/undo/PasteCommand.h"

#include "model/TableModel.h"

PasteCommand::PasteCommand(TableModel* model, RangeVector const& cells, RangeVector const& oldCells,
                           bool changeSelection, QUndoCommand* parent)
    : CellContentsCommand(model, cells, oldCells, changeSelection, parent) {
    setText(QStringLiteral("PasteCommand"));
    Range const& anchor = model->getMainCell();
    this->cells = model->getRelativeRangeVector(this->cells);
    this->cells.moveRelative(anchor.row, anchor.col, false);
    for (Range& range : this->cells)
        range.hasMainCell = range == anchor;
    // A block with a hole at its corner has no cell there.
    flagFirstIfNone(this->cells);
    retainContents();
    setSelectionCells(this->cells, oldCells);
}
