#include "view/CellEdit.h"

#include "model/TableModel.h"
#include "model/undo/SetModelDataCommand.h"

#include <utility>

CellEdit::CellEdit(TableModel& model) : model(model), editRanges(model.getSelectedSet()) {
    copyWithoutValues(editMainRange, model.getMainCell());
    if (editRanges.isEmpty())
        editRanges = RangeVector{editMainRange};
    cells = editRanges.coverage({model.rowCount(), model.columnCount()}, false);
    model.populateCellDataValues(editMainRange, false, true);
}

void CellEdit::setText(QString const& text, bool skipMainCell) {
    cellTextChanged = true;
    lastText = text;
    editMainRange.value = text;
    ProvisionalText shown{cells, std::nullopt, text};
    if (skipMainCell)
        shown.underEditor = {editMainRange.row, editMainRange.col};
    model.setProvisionalText(std::move(shown));
}

void CellEdit::revert() {
    if (std::exchange(cellTextChanged, false))
        model.setProvisionalText(std::nullopt);
}

std::unique_ptr<QUndoCommand> CellEdit::finish(LeftOut leftOut) {
    if (leftOut == LeftOut::Leave)
        cells = editRanges.coverage({model.rowCount(), model.columnCount()}, true);
    bool const changed = cellTextChanged && model.getTableData().wouldFillChange(cells, lastText);
    revert();
    if (!changed)
        return nullptr;
    return std::make_unique<SetModelDataCommand>(&model, editRanges, lastText, true, leftOut);
}
