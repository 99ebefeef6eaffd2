#include "view/CellEdit.h"

#include "model/TableModel.h"
#include "model/undo/SetModelDataCommand.h"

#include <algorithm>
#include <utility>

namespace {

/// The range as an edit begins with it. A selected range may still hold texts from the command that selected it.
Range emptied(Range const& selected) {
    Range range;
    copyWithoutValues(range, selected);
    return range;
}

} // namespace

CellEdit::CellEdit(TableModel& model, bool overwrite)
    : model(model), editMainRange(emptied(model.getMainCell())), overwriteEdit(overwrite), rawRows(model.rowCountRaw()),
      rawCols(model.columnCountRaw()) {
    RangeVector const& selection = model.getSelection();
    std::transform(selection.begin(), selection.end(), std::back_inserter(editRanges), emptied);
    if (editRanges.empty())
        editRanges.push_back(editMainRange);
    model.populateCellDataValues(editRanges, false, true);
    model.populateCellDataValues(editMainRange, false, true);
}

void CellEdit::setText(QString const& text, bool skipMainCell) {
    cellTextChanged = true;
    editMainRange.value = text;
    for (Range& range : editRanges)
        range.value = text;
    model.populateModel(editRanges, false, skipMainCell ? editMainRange : Range(RangeType::None), true);
}

void CellEdit::revert() {
    if (!std::exchange(cellTextChanged, false))
        return;
    for (Range range : editRanges) {
        // The text went into the excluded cells of a whole row or column as well, and the old texts follow it there.
        range.excludedRows.clear();
        range.excludedCols.clear();
        range.value = QVariant();
        model.populateModel(range, true, Range(RangeType::None), false);
    }
    if (int const surplus = model.rowCountRaw() - rawRows; surplus > 0)
        model.removeRowsFromDataRaw(rawRows, surplus);
    if (int const surplus = model.columnCountRaw() - rawCols; surplus > 0)
        model.removeColumnsFromDataRaw(rawCols, surplus);
}

std::unique_ptr<QUndoCommand> CellEdit::finish() {
    bool const changed =
        cellTextChanged && std::any_of(editRanges.begin(), editRanges.end(),
                                       [this](Range const& range) { return rangeHasValueChange(range); });
    // The command reads what the cells hold when it is made, to write that back when it is undone.
    revert();
    if (!changed)
        return nullptr;
    return std::make_unique<SetModelDataCommand>(&model, editRanges, true);
}

bool CellEdit::rangeHasValueChange(Range const& range) const {
    QString const text = editMainRange.value.toString();
    auto const differs = [&](QVariant const& old) { return old.toString() != text; };
    switch (range.type) {
    case RangeType::Cell: return differs(range.oldValue);
    case RangeType::Row:
    case RangeType::Column: return std::any_of(range.lineOldValues.begin(), range.lineOldValues.end(), differs);
    case RangeType::Table:
        return std::any_of(range.tableOldValues.begin(), range.tableOldValues.end(),
                           [&](auto const& row) { return std::any_of(row.begin(), row.end(), differs); });
    case RangeType::None: break;
    }
    return false;
}
