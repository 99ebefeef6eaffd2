#include "model/SelectionGrowth.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <climits>
#include <map>
#include <tuple>

SelectionGrowth::SelectionGrowth(RangeSet const& ranges, std::vector<SelectionType> const& steps, Axis axis,
                                 ShiftBounds const& bounds)
    : ranges(ranges), steps(steps), axis(axis), bounds(bounds) {}

RangeSet SelectionGrowth::result() const {
    RangeSet grown(grownCells() - cellsBehindLines());
    for (LineRun const& run : inListOrder()) {
        if (run.range.type == rangeAxis(axis).lineType)
            growLines(run, grown);
        else
            growAcross(run, grown);
    }
    if (ranges.mainCell())
        grown.setMainCell(ranges.mainCell()->first, ranges.mainCell()->second);
    return grown;
}

// Where steps lead.

/// The line that the steps lead to from a line, seen at one position in it.
int SelectionGrowth::lineAfter(int line, int position) const {
    const int last = std::max(bounds.lineCount - 1, 0);
    for (const SelectionType step : steps) {
        const Direction direction = directionOf(step);
        if (!isAlong(direction, axis))
            continue;
        if (isBlockStep(step)) {
            const int from = std::clamp(line, 0, last);
            line = axis == Axis::Rows ? bounds.nextBlock(from, position, direction)
                                      : bounds.nextBlock(position, from, direction);
        } else {
            line += direction == Direction::Down || direction == Direction::Right ? 1 : -1;
        }
    }
    return std::clamp(line, 0, last);
}

/// The lines that a run of lines grows to.
std::pair<int, int> SelectionGrowth::reach(int first, int last, int position) const {
    const int firstAfter = lineAfter(first, position);
    const int lastAfter = first == last ? firstAfter : lineAfter(last, position);
    return {std::min(first, firstAfter), std::max(last, lastAfter)};
}

CellRect SelectionGrowth::rect(int first, int last, int from, int to) const {
    return axis == Axis::Rows ? CellRect{first, from, last, to} : CellRect{from, first, to, last};
}

// Cells.

CellRegion SelectionGrowth::grownCells() const {
    std::vector<CellRect> grown;
    for (CellRect const& rect : ranges.cells().rects()) {
        const std::vector<CellRect> pieces = grownRect(rect);
        grown.insert(grown.end(), pieces.begin(), pieces.end());
    }
    return CellRegion::ofRects(grown);
}

std::vector<CellRect> SelectionGrowth::grownRect(CellRect const& cells) const {
    const bool rows = axis == Axis::Rows;
    const auto [first, last] = rows ? std::pair(cells.top, cells.bottom) : std::pair(cells.left, cells.right);
    const auto [from, to] = rows ? std::pair(cells.left, cells.right) : std::pair(cells.top, cells.bottom);
    std::pair<int, int> lines = reach(first, last, from);
    // Only a jump goes by what the cells at one position hold.
    if (std::none_of(steps.begin(), steps.end(), isBlockStep))
        return {rect(lines.first, lines.second, from, to)};
    std::vector<CellRect> pieces;
    int start = from; // of the positions that reach as far as one another
    for (int position = from + 1; position <= to; ++position) {
        if (const auto here = reach(first, last, position); here != lines) {
            pieces.push_back(rect(lines.first, lines.second, start, position - 1));
            std::tie(lines, start) = std::pair(here, position);
        }
    }
    pieces.push_back(rect(lines.first, lines.second, start, to));
    return pieces;
}

CellRegion SelectionGrowth::cellsAt(int position) const {
    return axis == Axis::Rows ? ranges.cells().col(position) : ranges.cells().row(position);
}

std::vector<std::pair<int, int>> SelectionGrowth::linesOf(CellRegion const& atOnePosition) const {
    std::vector<std::pair<int, int>> lines;
    for (CellRect const& each : atOnePosition.rects())
        lines.push_back(axis == Axis::Rows ? std::pair(each.top, each.bottom) : std::pair(each.left, each.right));
    return lines;
}

// Who comes first.

/// The cells that stand behind a whole row or column of the same start, and so belong to it.
CellRegion SelectionGrowth::cellsBehindLines() const {
    if (ranges.cells().isEmpty())
        return {};
    const CellRect cells = ranges.cells().bounds();
    const auto [from, to] =
        axis == Axis::Rows ? std::pair(cells.left, cells.right) : std::pair(cells.top, cells.bottom);
    std::map<int, std::vector<CellRect>> starts; // by position
    for (LineRun const& run : ranges.lines()) {
        const int start = run.range.*rangeAxis(axis).line;
        if (run.range.type == rangeAxis(axis).lineType && run.position() >= from && run.position() <= to)
            starts[run.position()].push_back(rect(run.firstLine(), run.lastLine(), run.position(), run.position()));
        if (run.range.type != rangeAxis(axis).crossType)
            continue;
        for (int position = std::max(from, run.firstLine()); position <= std::min(to, run.lastLine()); ++position)
            starts[position].push_back(rect(start, start, position, position));
    }
    CellRegion behind;
    for (auto const& [position, rects] : starts)
        behind = behind | firstStarted(CellRegion::ofRects(rects), cellsAt(position), position);
    return behind;
}

/// Where one of `starts`, grown, comes before any of the cells in a list in order of lines; all at one position. Of
/// those that grow over a line the first is the one from the smallest line, and at the same line the cell.
CellRegion SelectionGrowth::firstStarted(CellRegion const& starts, CellRegion const& cells, int position) const {
    const auto all = linesOf(starts | cells);
    std::vector<CellRect> first;
    for (auto const& [top, bottom] : linesOf(starts - cells)) {
        const auto within =
            std::lower_bound(all.begin(), all.end(), top, [](auto const& run, int line) { return run.second < line; });
        // The one in front of these, which takes the lines that it grows over itself.
        const bool adjoins = within->first < top;
        const bool alone = !adjoins && within == all.begin();
        const int before = adjoins ? top - 1 : alone ? INT_MIN : std::prev(within)->second;
        const int topAfter = lineAfter(top, position);
        const int bottomAfter = lineAfter(bottom, position);
        const bool onwards = topAfter >= top && bottomAfter >= bottom; // at the edge of the table one of them stays
        const int from = onwards ? (alone ? top : std::max(top, lineAfter(before, position) + 1))
                                 : std::max(alone ? topAfter : before + 1, topAfter);
        const int to = onwards ? bottomAfter : bottom;
        if (from <= to)
            first.push_back(rect(from, to, position, position));
    }
    return CellRegion::ofRects(first);
}

/// Rows, columns and tables by the lines that they start on, which is the order of those at one position.
std::vector<LineRun> SelectionGrowth::inListOrder() const {
    std::vector<LineRun> runs = ranges.lines();
    int Range::*const line = rangeAxis(axis).line;
    std::stable_sort(runs.begin(), runs.end(),
                     [line](LineRun const& a, LineRun const& b) { return a.range.*line < b.range.*line; });
    return runs;
}

// Whole rows and columns, and tables.

void SelectionGrowth::growLines(LineRun const& run, RangeSet& out) const {
    const auto [first, last] = reach(run.firstLine(), run.lastLine(), run.position());
    if (run.isPlain())
        return out.addLines(run.part(first, last));
    for (int line = first; line <= last; ++line)
        out.addLines(run.part(line, line));
}

/// A range across the lines starts on every line between.
void SelectionGrowth::growAcross(LineRun const& run, RangeSet& out) const {
    int Range::*const line = rangeAxis(axis).line;
    const int position = run.range.*rangeAxis(axis).position;
    const int start = run.range.*line;
    const auto [first, last] = reach(start, start, position);
    CellRegion ahead; // of the cells at the same start
    if (run.range.type == RangeType::Table) {
        const CellRegion own(rect(start, start, position, position));
        ahead = firstStarted(own, run.behindCell ? cellsAt(position) : cellsAt(position) - own, position);
    }
    for (int at = first; at <= last; ++at) {
        LineRun copy = run;
        copy.range.*line = at;
        const bool holdsCell = out.cells().contains(copy.range.row, copy.range.col);
        copy.behindCell = holdsCell && !ahead.contains(copy.range.row, copy.range.col);
        out.editLines().push_back(copy);
    }
}
