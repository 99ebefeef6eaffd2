#include "model/undo/ReplaceLineBreaksCommand.h"

#include "model/TableModel.h"

#include <utility>
#include <vector>

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

CellRegion ReplaceLineBreaksCommand::lostCharacters() const {
    std::vector<std::pair<int, int>> lossy;
    for (Range const& cell : model->getRawRange(replacements)) {
        bool loses = false;
        model->getTableData().getCodec().encode(cell.value().toString(), &loses);
        if (loses)
            lossy.emplace_back(cell.row, cell.col);
    }
    return CellRegion::ofCells(std::move(lossy));
}

// Without a change of the selection nothing else tells the editor pane of the main cell's new text.
void ReplaceLineBreaksCommand::showTexts() {
    model->onMainCellChanged();
    model->enforceAutoFitAll(Axis::Columns);
    model->enforceAutoFitAll(Axis::Rows);
}
