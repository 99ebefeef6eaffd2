#include "view/HeaderGestures.h"

#include "model/RangeAxis.h"
#include "model/TableModel.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

Range lineRange(Axis axis, int section) {
    return {section, rangeAxis(axis).lineType, RangeIndexType::Model};
}

/// From one line to another, both included, in either direction.
RangeVector lineRanges(Axis axis, int from, int to) {
    RangeVector lines;
    lines.reserve(std::size_t(std::abs(to - from)) + 1);
    int const step = from <= to ? 1 : -1;
    for (int line = from; line != to + step; line += step)
        lines.push_back(lineRange(axis, line));
    return lines;
}

} // namespace

void HeaderGestures::press(TableModel& model, Axis axis, int section) {
    anchorOf(axis) = section;
    Range mainCell = rangeAxis(axis).cell(section, 0);
    mainCell.hasMainCell = true;
    model.setSelection(RangeVector{lineRange(axis, section), mainCell}, true);
    base = model.getSelection();
}

void HeaderGestures::ctrlPress(TableModel& model, Axis axis, int section) {
    if (anchor(axis) == -1)
        anchorOf(axis) = section;
    model.addCellToSelection(lineRange(axis, section));
    base = model.getSelection();
}

HeaderGestures::ShiftPress HeaderGestures::shiftPress(TableModel& model, Axis axis, int section) {
    if (section < 0)
        return ShiftPress::Nothing;
    RangeAxis const& names = rangeAxis(axis);
    RangeVector const& selected = model.getSelection();
    auto const hasLine = [&](auto const& wanted) {
        return std::any_of(selected.begin(), selected.end(),
                           [&](Range const& range) { return range.type == names.lineType && wanted(range); });
    };
    bool const hasOther = hasLine([&](Range const& range) { return range.*names.line != section; });
    if (!hasOther || model.cellInSelection(lineRange(axis, section)))
        return ShiftPress::DragSections;
    Range const mainCell = model.getMainCell();
    int const mainLine = mainCell.*names.line;
    if (!hasLine([&](Range const& range) { return range.*names.line == mainLine; }))
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
    model.setSelection(Selection::withAbsoluteMainCell(base), true);
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
