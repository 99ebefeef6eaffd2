// The selection as the rest of the program sees it: the algebra is Selection's, the announcements are made here.

#include "core/NumberUtilities.h"
#include "model/SelectionStatistics.h"
#include "model/TableModel.h"

#include <algorithm>

namespace {

/// A jump goes by what is in sight. It ends in the data, but from cells behind the data it never leads back into it
/// against its direction.
int inSight(int line, int from, int dataLines) {
    return std::clamp(line, 0, std::max({dataLines - 1, from, 0}));
}

} // namespace

void TableModel::announce(SelectionChange const& change) {
    if (change.multiCell) {
        if (*change.multiCell)
            emit addContextSignal(Context::MultiCellSelection);
        else
            emit removeContextSignal(Context::MultiCellSelection);
    }
    if (change.mainCell)
        onMainCellChanged();
    if (change.ranges)
        emit selectionChangedSignal();
    if (change.size)
        emit selectionSizeChangedSignal(getSelectionSize());
}

void TableModel::onMainCellChanged() {
    Range mainCell = selection.mainCell();
    populateCellDataValues(mainCell, true, false);
    emit mainCellChangedSignal(mainCell);
}

void TableModel::setSelection(Range range) {
    range = getModelRange(range);
    announce(selection.setSelection(range));
}

void TableModel::setSelection(Range const& mainRange, RangeSet const& ranges) {
    announce(selection.setSelection(getModelRange(mainRange), getModelRange(ranges)));
}

void TableModel::setSelection(RangeVector const& ranges, bool resetShift) {
    announce(selection.setSelection(getModelRange(ranges), resetShift));
}

void TableModel::setMainCell(Range const& range) {
    announce(selection.setMainCell(getModelRange(range)));
}

void TableModel::clearSelection(Range const& range) {
    announce(selection.clearSelection(range));
}

bool TableModel::addCellToSelection(Range const& range) {
    announce(selection.addCellToSelection(getModelRange(range)));
    return true;
}

bool TableModel::addCellsToSelection(RangeSet const& ranges) {
    announce(selection.addCellsToSelection(getModelRange(ranges)));
    return true;
}

bool TableModel::removeCellFromSelection(int row, int col) {
    bool const removed = selection.removeCellFromSelection(row, col);
    if (removed)
        announce({.ranges = true, .size = true, .multiCell = selection.isSelectionMultiCell()});
    return removed;
}

QModelIndexList TableModel::getSelectionIndexes() const {
    RangeVector cells;
    getCellOnlyRangeVector(cells, selection.ranges());
    QModelIndexList indexes;
    for (Range const& cell : cells)
        indexes.append(index(cell.row, cell.col));
    return indexes;
}

void TableModel::setProvisionalText(std::optional<ProvisionalText> text) {
    TableSize const before = getShownSize();
    provisional = std::move(text);
    TableSize const now = getShownSize();
    if (now != before)
        emit tableSizeChangedSignal(now.rawRows, now.rawCols, now.modelRows, now.modelCols);
}

TableSize TableModel::getShownSize() const {
    TableSize size{rowCountRaw(), columnCountRaw(), rowCountModel(), columnCountModel()};
    CellRect const reach = provisional ? provisional->reach() : CellRect{};
    if (!reach.isEmpty())
        size.growTo(reach.bottom, reach.right);
    return size;
}

bool TableModel::setPendingSelectionCorner(Range const& corner, bool isFirst) {
    std::optional<RangeSize> const size = selection.setPendingSelectionCorner(corner, isFirst, gridSize());
    if (!size)
        return false;
    if (!isFirst)
        emit newPendingSelectionCornerSignal(corner);
    emit selectionSizeChangedSignal(*size);
    return true;
}

void TableModel::moveSelectionRelative(int rows, int cols) {
    announce(selection.moveSelectionRelative(rows, cols, gridSize()));
}

void TableModel::moveSelectionVertically(RangeSet const& ranges, int rows) {
    announce(selection.moveSelectionVertically(getModelRange(ranges), rows));
}

void TableModel::moveSelectionHorizontally(RangeSet const& ranges, int cols) {
    announce(selection.moveSelectionHorizontally(getModelRange(ranges), cols));
}

ShiftBounds TableModel::shiftBounds(Axis axis) const {
    auto const jump = [this](int row, int col, Direction direction) {
        bool const vertical = direction == Direction::Up || direction == Direction::Down;
        return inSight(tableData.nextBlockLine(row, col, direction), vertical ? row : col,
                       vertical ? rowCountModel() : columnCountModel());
    };
    return {axis == Axis::Rows ? viewRowCount : viewColCount, jump};
}

bool TableModel::selectUpOrDown(Direction direction, bool toBlockEdge, bool onlyTakeBack, bool* changed) {
    auto const change =
        selection.selectUpOrDown(direction, toBlockEdge, onlyTakeBack, changed, shiftBounds(Axis::Rows));
    if (change)
        announce(*change);
    return change.has_value();
}

bool TableModel::selectLeftOrRight(Direction direction, bool toBlockEdge, bool onlyTakeBack, bool* changed) {
    auto const change =
        selection.selectLeftOrRight(direction, toBlockEdge, onlyTakeBack, changed, shiftBounds(Axis::Columns));
    if (change)
        announce(*change);
    return change.has_value();
}

void TableModel::selectUpOrDown(RangeSet const& base, std::vector<SelectionType> const& steps) {
    announce(selection.selectUpOrDown(base, steps, shiftBounds(Axis::Rows)));
}

void TableModel::selectLeftOrRight(RangeSet const& base, std::vector<SelectionType> const& steps) {
    announce(selection.selectLeftOrRight(base, steps, shiftBounds(Axis::Columns)));
}

void TableModel::invertSelectionByRowsHeaderExcluded() {
    announce(selection.invertSelectionByRowsHeaderExcluded({rowCountModel(), columnCountModel()},
                                                           getNumVisibleHeaderRows()));
}

void TableModel::invertSelectionByColumnsHeaderExcluded() {
    announce(
        selection.invertSelectionByColumnsHeaderExcluded({rowCountModel(), columnCountModel()}, getNumHeaderCols()));
}

bool TableModel::getNextBlockLocation(Range const& from, Range& to, Direction direction) const {
    Range const start = getModelRange(from);
    to = tableData.getNextBlockLocation(start, direction);
    to.row = inSight(to.row, start.row, rowCountModel());
    to.col = inSight(to.col, start.col, columnCountModel());
    return true;
}

QString TableModel::getSelectionSumMeanStr() const {
    std::vector<RangeVector> rows;
    getCellArrayByRows(rows, true, false);
    std::vector<double> numbers;
    for (RangeVector const& row : rows) {
        for (Range const& cell : row) {
            double const number = Utilities::convertStringToDouble(cell.value().toString().toUtf8(), true);
            if (number == number)
                numbers.push_back(number);
        }
    }
    return SelectionStatistics::text(Utilities::computeSum(numbers), qint64(numbers.size()));
}

void TableModel::updateStatusBarStats() {
    if (!readOnly)
        emit updateStatsLabelSignal(getSelectionSumMeanStr());
}
