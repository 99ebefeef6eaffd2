// Ranges of cells: what they touch, the cells they stand for, and their contents.

#include "core/RangeShapes.h"
#include "model/RangeContents.h"
#include "model/RangeExpansion.h"
#include "model/TableModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

void append(std::vector<RangeVector>& out, std::vector<RangeVector>&& lists) {
    out.insert(out.end(), std::make_move_iterator(lists.begin()), std::make_move_iterator(lists.end()));
}

/// A reader of what the model displays, or none.
RangeExpansion::Reader displayReader(TableModel const& model, bool wanted) {
    if (!wanted)
        return nullptr;
    return [&model](int row, int col) { return model.data(model.index(row, col), Qt::DisplayRole); };
}

} // namespace

void TableModel::getOrderedSetOfRows(Indexes& out, RangeVector const& ranges, RangeIndexType type) const {
    orderedSet(Axis::Rows, out, ranges, type);
}

void TableModel::getOrderedSetOfCols(Indexes& out, RangeVector const& ranges, RangeIndexType type) const {
    orderedSet(Axis::Columns, out, ranges, type);
}

void TableModel::orderedSet(Axis axis, Indexes& out, RangeVector const& ranges, RangeIndexType type) const {
    RangeIndexType const source = ranges.empty() ? type : ranges.front().indexType;
    bool const isRaw = source == RangeIndexType::Raw;
    RangeExpansion const expansion(isRaw ? rowCountRaw() : rowCountModel(),
                                   isRaw ? columnCountRaw() : columnCountModel());
    Indexes const lines = axis == Axis::Rows ? expansion.touchedRows(ranges) : expansion.touchedCols(ranges);
    RangeVector::getOrderedSet(out, spaces().convertList(axis, lines, type, source));
}

void TableModel::orderedSet(Axis axis, Indexes& out, RangeSet const& ranges, RangeIndexType type) const {
    Indexes lines = ranges.touchedLines(axis, axis == Axis::Rows ? rowCountModel() : columnCountModel());
    RangeVector::getOrderedSet(out, spaces().convertList(axis, std::move(lines), type, RangeIndexType::Model));
}

void TableModel::getOrderedSetOfSelectedRows(Indexes& out, RangeIndexType type, bool) const {
    orderedSet(Axis::Rows, out, selection.set(), type);
}

void TableModel::getOrderedSetOfSelectedCols(Indexes& out, RangeIndexType type, bool withPending) const {
    RangeSet ranges = selection.set();
    Range const& start = selection.pendingCornerStart();
    Range const& end = selection.pendingCornerEnd();
    if (withPending && start.col != -1 && end.col != -1)
        ranges.add(RangeSet::ofLines(Axis::Columns, std::min(start.col, end.col), std::max(start.col, end.col)));
    orderedSet(Axis::Columns, out, ranges, type);
}

void TableModel::getCellArrayByRows(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                                    bool fillOld) const {
    RangeExpansion const expansion(rowCountModel(), columnCountModel());
    append(out, expansion.cellsByRows(ranges, displayReader(*this, fillValue), displayReader(*this, fillOld)));
}

void TableModel::getCellArrayByRows(std::vector<RangeVector>& out, bool fillValue, bool fillOld) const {
    getCellArrayByRows(out, selection.ranges(), fillValue, fillOld);
}

void TableModel::getCellArrayByCols(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                                    bool fillOld) const {
    RangeExpansion const expansion(rowCountModel(), columnCountModel());
    append(out, expansion.cellsByCols(ranges, displayReader(*this, fillValue), displayReader(*this, fillOld)));
}

void TableModel::getCellArrayByCols(std::vector<RangeVector>& out, bool fillValue, bool fillOld) const {
    getCellArrayByCols(out, selection.ranges(), fillValue, fillOld);
}

void TableModel::getCellBlockArrayHorizontal(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                                             bool fillOld) const {
    RangeExpansion const expansion(rowCountModel(), columnCountModel());
    append(out, expansion.cellBlocksHorizontal(ranges, displayReader(*this, fillValue), displayReader(*this, fillOld)));
}

void TableModel::getCellBlockArrayVertical(std::vector<RangeVector>&, RangeVector const&, bool, bool) const {}

void TableModel::convertCellArrayToCells(std::vector<RangeVector> const& array, RangeVector& out) const {
    for (RangeVector const& cells : array)
        out.insert(out.end(), cells.begin(), cells.end());
}

void TableModel::getCellOnlyRangeVector(RangeVector& out, RangeVector const& ranges) const {
    RangeVector const cells = RangeExpansion(rowCountModel(), columnCountModel()).cellsOnly(ranges);
    out.insert(out.end(), cells.begin(), cells.end());
}

void TableModel::getListOfCellValues(std::vector<QVariant>& out, RangeVector const&) const {
    auto const read = [this](int row, int col) { return tableData.getValueModel(row, col); };
    std::vector<QVariant> values =
        RangeExpansion(rowCountModel(), columnCountModel()).cellValues(selection.ranges(), read);
    out.insert(out.end(), std::make_move_iterator(values.begin()), std::make_move_iterator(values.end()));
}

RangeVector TableModel::getRelativeRangeVector(RangeVector const& ranges) const {
    return ::getRelativeRangeVector(ranges);
}

bool TableModel::areRangeVectorsSameShape(RangeVector const& a, RangeVector const& b) const {
    return ::areRangeVectorsSameShape(a, b);
}

bool TableModel::areRangeVectorsSameShapeRowWise(RangeVector const& a, RangeVector const& b) const {
    return ::areRangeVectorsSameShapeRowWise(a, b);
}

bool TableModel::areRangeVectorsSameShapeColWise(RangeVector const& a, RangeVector const& b) const {
    return ::areRangeVectorsSameShapeColWise(a, b);
}

int TableModel::findTopOccupiedRow(RangeVector& ranges) const {
    return ::findTopOccupiedRow(ranges);
}

int TableModel::findBottomOccupiedRow(RangeVector& ranges, bool ignoreWhole) const {
    return ::findBottomOccupiedRow(ranges, ignoreWhole, rowCountModel());
}

int TableModel::findLeftmostOccupiedCol(RangeVector& ranges) const {
    if (ranges.empty())
        ranges = selection.ranges();
    return ::findLeftmostOccupiedCol(ranges);
}

int TableModel::findRightmostOccupiedCol(RangeVector& ranges, bool ignoreWhole) const {
    return ::findRightmostOccupiedCol(ranges, ignoreWhole, columnCountModel());
}

int TableModel::findTopOccupiedRow() const {
    return selection.set().firstStart(Axis::Rows);
}

int TableModel::findBottomOccupiedRow(bool ignoreWhole) const {
    bool const reachesEnd = !ignoreWhole && selection.set().hasAcross(Axis::Rows);
    return reachesEnd ? rowCountModel() - 1 : selection.set().lastStart(Axis::Rows);
}

int TableModel::findLeftmostOccupiedCol() const {
    return selection.set().firstStart(Axis::Columns);
}

int TableModel::findRightmostOccupiedCol(bool ignoreWhole) const {
    bool const reachesEnd = !ignoreWhole && selection.set().hasAcross(Axis::Columns);
    return reachesEnd ? columnCountModel() - 1 : selection.set().lastStart(Axis::Columns);
}

void TableModel::populateModel(Range& range, bool useOldValues, Range const& skipCell, bool emitChanges) {
    RangeContents(*this).write(range, {useOldValues, skipCell, emitChanges});
}

void TableModel::populateModel(RangeVector& ranges, bool useOldValues, Range const& skipCell, bool emitChanges) {
    RangeContents(*this).write(ranges, {useOldValues, skipCell, emitChanges});
}

void TableModel::populateExistingCells(RangeVector const& ranges, bool useOldValues) {
    RangeContents(*this).writeExisting(ranges, useOldValues);
}

void TableModel::populateCellDataValues(Range& range, bool fillValue, bool fillOld) const {
    RangeContents::read(*this, range, fillValue, fillOld);
}

void TableModel::populateCellDataValues(RangeVector& ranges, bool fillValue, bool fillOld) const {
    for (Range& range : ranges)
        RangeContents::read(*this, range, fillValue, fillOld);
}

void TableModel::enforceAutoFit(Indexes const& rows, Indexes const& cols) {
    emit enforceAutoFitRowHeightsSignal(rows);
    emit enforceAutoFitColWidthsSignal(cols);
}

RangeSet TableModel::getModelRange(RangeSet const& ranges) const {
    return ranges.getIndexType() == RangeIndexType::Model ? ranges : RangeSet(getModelRange(ranges.ranges()));
}

void TableModel::enforceAutoFitOnModel(RangeSet const& ranges) {
    Indexes rows;
    Indexes cols;
    RangeSet const modelRanges = getModelRange(ranges);
    orderedSet(Axis::Rows, rows, modelRanges, RangeIndexType::Model);
    orderedSet(Axis::Columns, cols, modelRanges, RangeIndexType::Model);
    enforceAutoFit(rows, cols);
}
