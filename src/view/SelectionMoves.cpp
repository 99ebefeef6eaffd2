#include "view/SelectionMoves.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <map>

RangeSet SelectionMoves::moved(RangeSet const& ranges, Axis axis, int lines) {
    return axis == Axis::Rows ? ranges.movedInside(lines, 0) : ranges.movedInside(0, lines);
}

RangeSet SelectionMoves::wholeLines(RangeSet const& ranges, Axis axis, int start) {
    RangeSet whole;
    if (ranges.hasAcross(axis)) {
        Range table(RangeType::Table, RangeIndexType::Model);
        table.*rangeAxis(axis).position = start;
        return RangeVector{table};
    }
    for (auto const& [first, last] : ranges.startLines(axis)) {
        LineRun run;
        run.range = Range(first, rangeAxis(axis).lineType, RangeIndexType::Model);
        run.range.*rangeAxis(axis).position = start;
        run.count = last - first + 1;
        whole.addLines(run);
    }
    return whole;
}

RangeSet SelectionMoves::toEdge(RangeSet const& ranges, Direction direction, TableExtent const& table) {
    Axis const along = axisOf(direction);
    RangeAxis const& axis = rangeAxis(along);
    bool const rows = along == Axis::Rows;
    bool const forward = isForward(direction);
    int const edge = forward ? (rows ? table.rows : table.cols) - 1 : (rows ? table.headerRows : table.headerCols);
    auto const grow = [&](int& first, int& last) { (forward ? last : first) = edge; };

    // What grows into one another is there once.
    std::vector<CellRect> cells = ranges.cells().rects();
    for (CellRect& rect : cells)
        rows ? grow(rect.top, rect.bottom) : grow(rect.left, rect.right);
    RangeSet grown(CellRegion::ofRects(cells));
    std::map<int, std::pair<int, int>> lines; // by the position that they start at
    for (LineRun const& run : ranges.lines()) {
        if (run.range.type != axis.lineType) {
            LineRun across = run;
            if (!forward)
                across.range.*axis.line = edge;
            grown.addLines(across);
            continue;
        }
        auto& span = lines.try_emplace(run.position(), run.firstLine(), run.lastLine()).first->second;
        span = {std::min(span.first, run.firstLine()), std::max(span.second, run.lastLine())};
    }
    for (auto& [position, span] : lines) {
        grow(span.first, span.second);
        grown.add(RangeSet::ofLines(along, span.first, span.second, position));
    }
    return grown;
}

RangeSet SelectionMoves::rectangle(Range const& from, Range const& to) {
    auto const [top, bottom] = std::minmax(from.row, to.row);
    auto const [left, right] = std::minmax(from.col, to.col);
    return RangeSet(CellRegion({top, left, bottom, right}));
}

int SelectionMoves::farthestSelectedLine(RangeSet const& ranges, Range const& mainCell, Direction direction) {
    Axis const along = axisOf(direction);
    RangeAxis const& axis = rangeAxis(along);
    bool const rows = along == Axis::Rows;
    bool const forward = isForward(direction);
    int farthest = mainCell.*axis.line;
    auto const reach = [&](int first, int last) {
        farthest = forward ? std::max(farthest, last) : std::min(farthest, first);
    };
    CellRegion const inLine = rows ? ranges.cells().col(mainCell.col) : ranges.cells().row(mainCell.row);
    if (!inLine.isEmpty()) {
        CellRect const bounds = inLine.bounds();
        rows ? reach(bounds.top, bounds.bottom) : reach(bounds.left, bounds.right);
    }
    for (LineRun const& run : ranges.lines()) {
        int const position = mainCell.*axis.position;
        if (run.range.type == axis.lineType && run.position() == position)
            reach(run.firstLine(), run.lastLine());
        else if (run.range.type == axis.crossType && run.holdsLine(position))
            reach(run.position(), run.position());
        else if (run.range.type == RangeType::Table && run.range.*axis.position == position)
            reach(run.range.*axis.line, run.range.*axis.line);
    }
    return farthest;
}

int SelectionMoves::smallestAxisException(Range const& range, Axis axis, int above) {
    int smallest = -1;
    for (int const line : (range.*rangeAxis(axis).excludedLines)()) {
        if (line > above && (smallest == -1 || line < smallest))
            smallest = line;
    }
    return smallest;
}

void SelectionMoves::makeFirstCellMainIfNoMain(RangeVector& ranges) {
    bool const hasMain =
        std::any_of(ranges.begin(), ranges.end(), [](Range const& range) { return range.hasMainCell; });
    if (!ranges.empty() && !hasMain)
        ranges.front().hasMainCell = true;
}
