#include "model/undo/PasteCommand.h"

#include "model/TableModel.h"

PasteCommand::PasteCommand(TableModel* model, RangeVector const& cells, RangeVector const& oldCells,
                           bool changeSelection, QUndoCommand* parent)
    : CellContentsCommand(model, cells, oldCells, changeSelection, parent) {
    setText(QStringLiteral("PasteCommand"));
    Range const& anchor = model->getMainCell();
    RangeVector pasted = model->getRelativeRangeVector(model->getModelRange(cells));
    pasted.moveRelative(anchor.row, anchor.col, false);
    for (Range& range : pasted)
        range.hasMainCell = false;
    writeContents(pasted);
    this->cells = pasted;
    // A block with a hole at its corner has no cell there.
    bool const holdsAnchor = this->cells.contains(anchor);
    if (!pasted.empty())
        this->cells.setMainCell(holdsAnchor ? anchor.row : pasted.front().row,
                                holdsAnchor ? anchor.col : pasted.front().col);
    setSelectionCells(this->cells, oldCells);
}
