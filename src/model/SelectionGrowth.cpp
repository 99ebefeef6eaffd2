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
    for (LineRun const* const run : inListOrder()) {
        if (run->range.type == rangeAxis(axis).lineType)
            growLines(*run, grown);
        else
            growAcross(*run, grown);
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

/// Calls take(lines, from, to) with the lines that a run of lines grows to, for positions where it grows alike.
template <class Take>
void SelectionGrowth::visitReaches(int first, int last, int from, int to, Take take) const {
    std::pair<int, int> lines = reach(first, last, from);
    // Only a jump goes by what the cells at one position hold.
    const bool jumps = std::any_of(steps.begin(), steps.end(), isBlockStep);
    for (int position = from + 1; jumps && position <= to; ++position) {
        if (const auto here = reach(first, last, position); here != lines) {
            take(lines, from, position - 1);
            std::tie(lines, from) = std::pair(here, position);
        }
    }
    take(lines, from, to);
}

CellRect SelectionGrowth::rect(int first, int last, int from, int to) const {
    return axis == Axis::Rows ? CellRect{first, from, last, to} : CellRect{from, first, to, last};
}

// Cells.

CellRegion SelectionGrowth::grownCells() const {
    std::vector<CellRect> grown;
    for (CellRect const& rect : ranges.cells().rects())
        addGrown(grown, rect);
    return CellRegion::ofRects(grown);
}

void SelectionGrowth::addGrown(std::vector<CellRect>& pieces, CellRect const& cells) const {
    const bool rows = axis == Axis::Rows;
    const auto [first, last] = rows ? std::pair(cells.top, cells.bottom) : std::pair(cells.left, cells.right);
    const auto [from, to] = rows ? std::pair(cells.left, cells.right) : std::pair(cells.top, cells.bottom);
    visitReaches(first, last, from, to, [&](std::pair<int, int> lines, int start, int end) {
        pieces.push_back(rect(lines.first, lines.second, start, end));
    });
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
        const int taken = alone ? INT_MIN : reach(before, before, position).second;
        auto const [reachFirst, to] = reach(top, bottom, position);
        const int from = alone ? reachFirst : std::max(reachFirst, taken + 1);
        if (from <= to)
            first.push_back(rect(from, to, position, position));
    }
    return CellRegion::ofRects(first);
}

/// Rows, columns and tables by the lines that they start on, which is the order of those at one position.
std::vector<LineRun const*> SelectionGrowth::inListOrder() const {
    std::vector<LineRun const*> runs;
    runs.reserve(ranges.lines().size());
    for (LineRun const& run : ranges.lines())
        runs.push_back(&run);
    int Range::*const line = rangeAxis(axis).line;
    auto const before = [line](LineRun const* a, LineRun const* b) { return a->range.*line < b->range.*line; };
    if (!std::is_sorted(runs.begin(), runs.end(), before))
        std::stable_sort(runs.begin(), runs.end(), before);
    return runs;
}

// Whole rows and columns, and tables.

void SelectionGrowth::growLines(LineRun const& run, RangeSet& out) const {
    auto [first, last] = reach(run.firstLine(), run.lastLine(), run.position());
    if (run.isPlain()) {
        // Lines far apart grow into those before them, which are there already.
        LineRun const* const before = out.lines().empty() ? nullptr : &out.lines().back();
        if (before && before->isPlain() && before->range.type == run.range.type &&
            before->position() == run.position() && before->firstLine() <= first)
            first = std::max(first, before->lastLine() + 1);
        if (first <= last)
            out.addLines(run.part(first, last));
        return;
    }
    for (int line = first; line <= last; ++line)
        out.addLines(run.part(line, line));
}

void SelectionGrowth::growAcross(LineRun const& run, RangeSet& out) const {
    const bool isTable = run.range.type == RangeType::Table;
    const int start = run.range.*rangeAxis(axis).line;
    const int from = run.range.*rangeAxis(axis).position;
    visitReaches(start, start, from, isTable ? from : run.lastLine(),
                 [&](std::pair<int, int> lines, int first, int last) {
                     growTo(lines, isTable ? run : run.part(first, last), out);
                 });
}

/// A range across the lines starts on every line from the first to the last of `lines`.
void SelectionGrowth::growTo(std::pair<int, int> lines, LineRun const& run, RangeSet& out) const {
    int Range::*const line = rangeAxis(axis).line;
    const int position = run.range.*rangeAxis(axis).position;
    const int start = run.range.*line;
    CellRegion ahead; // of the cells at the same start
    if (run.range.type == RangeType::Table) {
        const CellRegion own(rect(start, start, position, position));
        ahead = firstStarted(own, run.behindCell ? cellsAt(position) : cellsAt(position) - own, position);
    }
    for (int at = lines.first; at <= lines.second; ++at) {
        LineRun copy = run;
        copy.range.*line = at;
        const bool holdsCell = out.cells().contains(copy.range.row, copy.range.col);
        copy.behindCell = holdsCell && !ahead.contains(copy.range.row, copy.range.col);
        out.editLines().push_back(copy);
    }
}
