#include "model/undo/SetModelDataCommand.h"

#include "model/TableModel.h"

SetModelDataCommand::SetModelDataCommand(TableModel* model, RangeVector const& cells, RangeVector const& extraCells,
                                         bool useExtraCells, bool changeSelection, QUndoCommand* parent)
    : CellContentsCommand(model, cells, changeSelection, parent) {
    setText(QStringLiteral("SetModelDataCommand"));
    RangeVector written;
    if (useExtraCells)
        written = model->getModelRange(extraCells);
    RangeVector const modelCells = model->getModelRange(cells);
    written.insert(written.end(), modelCells.begin(), modelCells.end());
    this->cells = written;
    writeContents(written);
}

SetModelDataCommand::SetModelDataCommand(TableModel* model, RangeVector const& cells, bool changeSelection,
                                         QUndoCommand* parent)
    : SetModelDataCommand(model, cells, {}, false, changeSelection, parent) {}

SetModelDataCommand::SetModelDataCommand(TableModel* model, RangeSet const& cells, QString const& text,
                                         bool changeSelection, LeftOut leftOut, QUndoCommand* parent)
    : CellContentsCommand(model, cells, changeSelection, parent) {
    setText(QStringLiteral("SetModelDataCommand"));
    writeEverywhere(this->cells, text, leftOut);
}
