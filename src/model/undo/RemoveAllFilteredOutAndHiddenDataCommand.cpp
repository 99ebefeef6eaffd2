#include "model/undo/RemoveAllFilteredOutAndHiddenDataCommand.h"

#include "core/IndexUtilities.h"
#include "model/TableModel.h"

RemoveAllFilteredOutAndHiddenDataCommand::RemoveAllFilteredOutAndHiddenDataCommand(TableModel* model,
                                                                                   RangeSet const& cells,
                                                                                   bool changeSelection,
                                                                                   QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent),
      rows(Axis::Rows, Utilities::getBlockPairs(model->getTableData().getConcealedRowsRaw())),
      cols(Axis::Columns, Utilities::getBlockPairs(model->getTableData().getConcealedColsRaw())) {
    setText(QStringLiteral("RemoveAllFilteredOutAndHiddenDataCommand"));
}

void RemoveAllFilteredOutAndHiddenDataCommand::apply() {
    model->getTableData().take(rows);
    model->getTableData().take(cols);
    model->onConcealedLinesChanged();
    selectNewCells();
}

void RemoveAllFilteredOutAndHiddenDataCommand::revert() {
    model->getTableData().putBack(cols);
    model->getTableData().putBack(rows);
    model->onConcealedLinesChanged();
    selectOldCells();
}
