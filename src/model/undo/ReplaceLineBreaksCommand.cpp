#include "model/undo/ReplaceLineBreaksCommand.h"

#include "model/TableModel.h"

ReplaceLineBreaksCommand::ReplaceLineBreaksCommand(TableModel* model, RangeVector const& cells, QUndoCommand* parent)
    : ContentCommand(model, false, parent), replacements(cells) {
    setText(QStringLiteral("ReplaceLineBreaksCommand"));
}

void ReplaceLineBreaksCommand::apply() {
    model->populateExistingCells(replacements, false);
}

void ReplaceLineBreaksCommand::revert() {
    model->populateExistingCells(replacements, true);
}
