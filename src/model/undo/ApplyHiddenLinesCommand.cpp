#include "model/undo/ApplyHiddenLinesCommand.h"

#include "model/HiddenLines.h"
#include "model/TableModel.h"

#include <algorithm>
#include <utility>

namespace {

/// Whether a range goes on along the axis to the end of the table.
bool crosses(Range const& range, Axis axis) {
    return range.type == RangeType::Table || range.type == (axis == Axis::Rows ? RangeType::Column : RangeType::Row);
}

/// Model lines without those that are hidden.
std::vector<int> inSight(std::vector<int> lines) {
    std::erase(lines, -1);
    return lines;
}

} // namespace

ApplyHiddenLinesCommand::ApplyHiddenLinesCommand(Axis axis, TableModel* model, RangeSet const& cells,
                                                 std::vector<int> hidden, bool changeSelection, QUndoCommand* parent)
    : TableUndoCommand(model, cells, changeSelection, parent), axis(axis), hidden(std::move(hidden)),
      rawMainCell(model->getRawRange(model->getMainCell())) {
    setText(axis == Axis::Rows ? QStringLiteral("ApplyHiddenRowsCommand") : QStringLiteral("ApplyHiddenColsCommand"));
    if (changeSelection)
        setSelectionCells(cells, cells);
    RangeVector raw = model->getRawRange(this->cells.ranges());
    for (Range& range : raw) {
        range.setExcludedRows(model->getRawFromModelRows(range.excludedRows()));
        range.setExcludedCols(model->getRawFromModelCols(range.excludedCols()));
    }
    rawSelection = raw;
}

void ApplyHiddenLinesCommand::redo() {
    exchange();
    if (!changeSelection)
        return finish();
    if (firstRedo)
        selectWhatIsLeft();
    else
        selectNewCells();
    firstRedo = false;
    finish();
}

void ApplyHiddenLinesCommand::undo() {
    exchange();
    selectOldCells();
    finish();
}

void ApplyHiddenLinesCommand::exchange() {
    std::vector<int> const present = HiddenLines(*model, axis).present();
    if (axis == Axis::Rows)
        model->setAndApplyHiddenRowsList(hidden);
    else
        model->setAndApplyHiddenColsList(hidden);
    hidden = present;
}

// Lines of the selection that have vanished are dropped. If nothing is left, the cell next to the main cell is taken.
void ApplyHiddenLinesCommand::selectWhatIsLeft() {
    RangeVector left;
    for (Range const& raw : rawSelection.ranges()) {
        Range range = model->getModelFromRawRange(raw, crosses(raw, axis));
        range.setExcludedRows(inSight(model->getModelFromRawRows(raw.excludedRows())));
        range.setExcludedCols(inSight(model->getModelFromRawCols(raw.excludedCols())));
        range.hasMainCell = false;
        if (range.isValid())
            left.push_back(range);
    }
    Range mainCell = model->getModelFromRawRange(rawMainCell, true);
    if (left.empty())
        left.push_back(mainCell);
    if (!left.containsRange(mainCell))
        mainCell = Range(std::max(left.front().row, 0), std::max(left.front().col, 0), RangeIndexType::Model);
    model->setSelection(mainCell, left);
    setSelectionCells(model->getSelectedSet());
}

void ApplyHiddenLinesCommand::finish() {
    refreshView();
    model->scrollToMainCell(true, false);
    std::vector<int> rows;
    std::vector<int> cols;
    model->getOrderedSetOfSelectedRows(rows, RangeIndexType::Model, false);
    model->getOrderedSetOfSelectedCols(cols, RangeIndexType::Model, false);
    model->enforceAutoFit(rows, cols);
    emit model->updateFindReplaceMatchesSignal();
}
