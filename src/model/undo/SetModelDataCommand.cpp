#include "model/undo/SetModelDataCommand.h"

#include "model/TableModel.h"

SetModelDataCommand::SetModelDataCommand(TableModel* model, RangeVector const& cells, RangeVector const& extraCells,
                                         bool useExtraCells, bool changeSelection, QUndoCommand* parent)
    : CellContentsCommand(model, cells, changeSelection, parent) {
    setText(QStringLiteral("SetModelDataCommand"));
    if (useExtraCells) {
        RangeVector const extra = model->getModelRange(extraCells);
        this->cells.insert(this->cells.begin(), extra.begin(), extra.end());
    }
    retainContents();
}

SetModelDataCommand::SetModelDataCommand(TableModel* model, RangeVector const& cells, bool changeSelection,
                                         QUndoCommand* parent)
    : SetModelDataCommand(model, cells, {}, false, changeSelection, parent) {}
