#include "model/undo/ReplaceLineBreaksCommand.h"

#include "model/TableModel.h"

ReplaceLineBreaksCommand::ReplaceLineBreaksCommand(TableModel* model, RangeVector const& cells, QUndoCommand* parent)
    : ContentCommand(model, false, parent), replacements(cells) {
    setText(QStringLiteral("ReplaceLineBreaksCommand"));
}

void ReplaceLineBreaksCommand::apply() {
    model->populateExistingCells(replacements, false);
    showTexts();
}

void ReplaceLineBreaksCommand::revert() {
    model->populateExistingCells(replacements, true);
    showTexts();
}

// Without a change of the selection nothing else tells the editor pane of the main cell's new text.
void ReplaceLineBreaksCommand::showTexts() {
    model->onMainCellChanged();
    model->enforceAutoFitAll(Axis::Columns);
    model->enforceAutoFitAll(Axis::Rows);
}
