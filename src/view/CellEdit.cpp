#include "view/CellEdit.h"

#include "model/TableModel.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/WriteCellsCommand.h"
#include "storage/EditedBytes.h"

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
    editMainRange.setValue(text);
    ProvisionalText shown{cells, std::nullopt, text};
    if (skipMainCell)
        shown.underEditor = {editMainRange.row, editMainRange.col};
    model.setProvisionalText(std::move(shown));
}

void CellEdit::revert() {
    if (std::exchange(cellTextChanged, false))
        model.setProvisionalText(std::nullopt);
}

/// What was not edited of the text keeps its bytes, also those that mean nothing. Null if there are no such bytes, or
/// if they would make something else of what stands beside them now, or the encoding lacks what was typed.
std::unique_ptr<QUndoCommand> CellEdit::commandThatKeepsBytes() const {
    if (isMultiCell())
        return nullptr;
    TableData const& data = model.getTableData();
    int const row = data.getRawFromModelRow(editMainRange.row);
    int const col = data.getRawFromModelCol(editMainRange.col);
    auto const bytes = editedBytes(data.getCodec(), data.cellBytesRaw(row, col), lastText);
    if (bytes == data.getCodec().encode(lastText) || data.getCodec().decode({bytes.data(), bytes.size()}) != lastText)
        return nullptr;
    CellPatch patch;
    patch.add(row, col, {bytes.data(), bytes.size()});
    return std::make_unique<WriteCellsCommand>(&model, editRanges, std::move(patch), true);
}

std::unique_ptr<QUndoCommand> CellEdit::finish(LeftOut leftOut) {
    if (leftOut == LeftOut::Leave)
        cells = editRanges.coverage({model.rowCount(), model.columnCount()}, true);
    bool const changed = cellTextChanged && model.getTableData().wouldFillChange(cells, lastText);
    revert();
    if (!changed)
        return nullptr;
    if (auto keeping = commandThatKeepsBytes())
        return keeping;
    return std::make_unique<SetModelDataCommand>(&model, editRanges, lastText, true, leftOut);
}
