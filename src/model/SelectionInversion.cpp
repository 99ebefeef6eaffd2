#include "model/SelectionInversion.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <climits>
#include <vector>

namespace {

/// A region with lines of an axis for its rows, so that what holds along rows holds along columns.
CellRegion alongAxis(CellRegion const& region, Axis axis) {
    if (axis == Axis::Rows)
        return region;
    std::vector<CellRect> rects = region.rects();
    for (CellRect& rect : rects)
        rect = {rect.left, rect.top, rect.right, rect.bottom};
    return CellRegion::ofRects(rects);
}

/// Whether only whole ranges across all lines from `firstLine` on are selected.
bool isOnlyAcross(RangeSet const& ranges, RangeAxis const& names, int firstLine) {
    auto const isAcross = [&](LineRun const& run) {
        Range const& range = run.range;
        return range.type != names.lineType && !range.hasExclusions() && range.*names.line <= firstLine;
    };
    return ranges.cells().isEmpty() && !ranges.lines().empty() &&
           std::all_of(ranges.lines().begin(), ranges.lines().end(), isAcross);
}

/// `left` has lines for its rows. Ranges across them keep a whole column, seen by rows, from falling into a cell for
/// each row.
RangeSet acrossLines(CellRegion const& left, Axis axis, int firstLine) {
    RangeSet result;
    for (CellRect const& rect : left.row(firstLine).rects())
        result.add(
            RangeSet::ofLines(axis == Axis::Rows ? Axis::Columns : Axis::Rows, rect.left, rect.right, firstLine));
    return result;
}

} // namespace

RangeSet invertRanges(RangeSet const& ranges, Axis axis, GridSize data, int firstLine) {
    RangeAxis const& names = rangeAxis(axis);
    CellRegion const all({firstLine, 0, data.*names.lineCount - 1, std::max(data.*names.positionCount - 1, 0)});
    CellRegion const selected = alongAxis(ranges.coverage(data, true), axis) & all;
    CellRegion const left = data.*names.positionCount > 0 ? all - selected : CellRegion();

    RangeSet result;
    if (!selected.isEmpty() && isOnlyAcross(ranges, names, firstLine)) {
        result = acrossLines(left, axis, firstLine);
    } else {
        std::vector<CellRect> touched = selected.rects();
        for (CellRect& rect : touched)
            rect = {rect.top, 0, rect.bottom, INT_MAX};
        CellRegion const touchedLines = CellRegion::ofRects(touched);
        result.setCells(alongAxis(left & touchedLines, axis));
        for (CellRect const& rect : (all - touchedLines).rects())
            result.add(RangeSet::ofLines(axis, rect.top, rect.bottom));
    }
    if (!left.isEmpty()) {
        auto const [line, position] = left.first();
        axis == Axis::Rows ? result.setMainCell(line, position) : result.setMainCell(position, line);
    }
    return result;
}
