#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"

#include "model/undo/ModelAxis.h"

namespace {

TakenLines::Blocks emptyLinesAtEnd(TableModel& model, Axis axis) {
    ModelAxis const lines(model, axis);
    int const count = lines.numEmptyRawAtEnd();
    if (count < 1)
        return {};
    return {{lines.rawCount() - count, lines.rawCount() - 1}};
}

} // namespace

RemoveEmptyRowsColsAtEndCommand::RemoveEmptyRowsColsAtEndCommand(TableModel* model, RangeSet const& cells,
                                                                 bool changeSelection, QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), rows(Axis::Rows, emptyLinesAtEnd(*model, Axis::Rows)),
      cols(Axis::Columns, emptyLinesAtEnd(*model, Axis::Columns)) {
    setText(QStringLiteral("RemoveEmptyRowsColsAtEndCommand"));
}

void RemoveEmptyRowsColsAtEndCommand::apply() {
    model->getTableData().take(rows);
    model->getTableData().take(cols);
    selectNewCells();
}

void RemoveEmptyRowsColsAtEndCommand::revert() {
    model->getTableData().putBack(cols);
    model->getTableData().putBack(rows);
    selectOldCells();
}
