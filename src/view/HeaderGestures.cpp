#include "view/HeaderGestures.h"

#include "model/RangeAxis.h"
#include "model/TableModel.h"

#include <algorithm>
#include <utility>

namespace {

Range lineRange(Axis axis, int section) {
    return {section, rangeAxis(axis).lineType, RangeIndexType::Model};
}

/// From one line to another, both included, in either direction.
RangeSet lineRanges(Axis axis, int from, int to) {
    return RangeSet::ofLines(axis, std::min(from, to), std::max(from, to));
}

} // namespace

void HeaderGestures::press(TableModel& model, Axis axis, int section) {
    anchorOf(axis) = section;
    Range mainCell = rangeAxis(axis).cell(section, 0);
    mainCell.hasMainCell = true;
    model.setSelection(RangeVector{lineRange(axis, section), mainCell}, true);
    base = model.getSelectedSet();
}

void HeaderGestures::ctrlPress(TableModel& model, Axis axis, int section) {
    if (anchor(axis) == -1)
        anchorOf(axis) = section;
    model.addCellToSelection(lineRange(axis, section));
    base = model.getSelectedSet();
}

HeaderGestures::ShiftPress HeaderGestures::shiftPress(TableModel& model, Axis axis, int section) {
    if (section < 0)
        return ShiftPress::Nothing;
    RangeAxis const& names = rangeAxis(axis);
    auto const& selected = model.getSelectedSet().lines();
    bool const hasOther = std::any_of(selected.begin(), selected.end(), [&](LineRun const& run) {
        return run.range.type == names.lineType && (run.count > 1 || run.firstLine() != section);
    });
    if (!hasOther || model.cellInSelection(lineRange(axis, section)))
        return ShiftPress::DragSections;
    Range const mainCell = model.getMainCell();
    int const mainLine = mainCell.*names.line;
    if (!model.getSelectedSet().hasLine(axis, mainLine))
        return ShiftPress::Nothing;
    model.setSelection(mainCell, lineRanges(axis, mainLine, section));
    return ShiftPress::Extend;
}

void HeaderGestures::rightPress(TableModel& model, Axis axis, int section) {
    bool const selected = axis == Axis::Rows ? model.isRowSelected(section) : model.isColSelected(section);
    if (section >= 0 && !selected) {
        press(model, axis, section);
        release(axis);
    }
}

bool HeaderGestures::enter(TableModel& model, Axis axis, int section) {
    if (anchor(axis) == -1 || section < 0)
        return false;
    auto const [row, col] = base.mainCell().value_or(std::pair(0, 0));
    model.setSelection(Range(row, col, RangeIndexType::Model), base);
    model.addCellsToSelection(lineRanges(axis, anchor(axis), section));
    return true;
}

void HeaderGestures::release(Axis axis) {
    anchorOf(axis) = -1;
    base = {};
}

SortData HeaderGestures::nextSort(TableModel const& model, Axis axis, int section) {
    // The label of a column sorts the rows by it, and the other way round.
    bool const byColumn = axis == Axis::Columns;
    TableData const& data = model.getTableData();
    SortData const& present = byColumn ? model.getRowSortData() : model.getColSortData();
    SortData next;
    next.axis = byColumn ? Axis::Rows : Axis::Columns;
    next.index = byColumn ? data.getRawFromModelCol(section) : data.getRawFromModelRow(section);
    bool const ascendingNow = present.index == next.index && present.sortType == SortType::Ascending;
    next.sortType = ascendingNow ? SortType::Descending : SortType::Ascending;
    return next;
}
