#include "view/SelectionMoves.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <climits>
#include <map>

namespace {

/// A run of lines.
struct Span {
    int first;
    int last;
};

/// The runs that cells and crossing lines grow to, by their position across the direction, so that cells of the same
/// row or column that grow into one another are counted once.
class GrowingRuns {
public:
    GrowingRuns(Direction direction, SelectionMoves::TableExtent const& table)
        : axis(rangeAxis(SelectionMoves::axisOf(direction))), forward(SelectionMoves::isForward(direction)) {
        bool const rows = SelectionMoves::axisOf(direction) == Axis::Rows;
        edge = forward ? (rows ? table.rows : table.cols) - 1 : (rows ? table.headerRows : table.headerCols);
    }

    void add(Range const& range) {
        int const line = range.*axis.line;
        Span const grown = forward ? Span{line, edge} : Span{edge, line};
        auto& runs = range.type == RangeType::Cell ? cells : lines;
        auto const [run, isNew] = runs.try_emplace(range.*axis.position, grown);
        run->second.first = std::min(run->second.first, grown.first);
        run->second.last = std::max(run->second.last, grown.last);
    }

    void appendTo(RangeVector& out) const {
        for (auto const& [position, run] : cells) {
            for (int line = run.first; line <= run.last; ++line)
                out.push_back(axis.cell(line, position));
        }
        for (auto const& [position, run] : lines) {
            for (int line = run.first; line <= run.last; ++line) {
                Range whole(line, axis.lineType, RangeIndexType::Model);
                whole.*axis.position = position;
                out.push_back(whole);
            }
        }
    }

    int headerEdge() const { return edge; }

private:
    RangeAxis const& axis;
    bool forward;
    int edge = 0;
    std::map<int, Span> cells;
    std::map<int, Span> lines;
};

} // namespace

RangeVector SelectionMoves::moved(RangeVector ranges, Axis axis, int lines) {
    auto const line = rangeAxis(axis).line;
    for (Range& range : ranges) {
        if (range.type != RangeType::None)
            range.*line = int(std::clamp<qint64>(qint64(range.*line) + lines, 0, INT_MAX));
    }
    return ranges;
}

RangeVector SelectionMoves::wholeLines(RangeVector const& ranges, Axis axis, int start) {
    std::vector<int> lines;
    if (axis == Axis::Rows)
        ranges.getOrderedSetOfRowsRaw(lines);
    else
        ranges.getOrderedSetOfColsRaw(lines);
    RangeAxis const& names = rangeAxis(axis);
    RangeVector whole;
    if (!lines.empty() && lines.front() < 0) {
        Range table(RangeType::Table, RangeIndexType::Model);
        table.*names.position = start;
        whole.push_back(table);
        return whole;
    }
    whole.reserve(lines.size());
    for (int const line : lines) {
        Range range(line, names.lineType, RangeIndexType::Model);
        range.*names.position = start;
        whole.push_back(range);
    }
    return whole;
}

RangeVector SelectionMoves::toEdge(RangeVector const& ranges, Direction direction, TableExtent const& table) {
    RangeAxis const& axis = rangeAxis(axisOf(direction));
    GrowingRuns runs(direction, table);
    RangeVector grown;
    for (Range const& range : ranges) {
        if (range.type == RangeType::Cell || range.type == axis.lineType) {
            runs.add(range);
        } else if (range.type != RangeType::None) {
            grown.push_back(range);
            if (!isForward(direction))
                grown.back().*axis.line = runs.headerEdge();
        }
    }
    runs.appendTo(grown);
    return grown;
}

RangeVector SelectionMoves::rectangle(Range const& from, Range const& to) {
    auto const [top, bottom] = std::minmax(from.row, to.row);
    auto const [left, right] = std::minmax(from.col, to.col);
    RangeVector cells;
    cells.reserve(std::size_t(bottom - top + 1) * std::size_t(right - left + 1));
    for (int row = top; row <= bottom; ++row) {
        for (int col = left; col <= right; ++col)
            cells.emplace_back(row, col, RangeIndexType::Model);
    }
    return cells;
}

int SelectionMoves::farthestSelectedLine(RangeVector const& ranges, Range const& mainCell, Direction direction) {
    RangeAxis const& axis = rangeAxis(axisOf(direction));
    int const start = mainCell.*axis.line;
    int farthest = start;
    for (Range const& range : ranges) {
        if (range.*axis.position != mainCell.*axis.position)
            continue;
        int const line = range.*axis.line;
        switch (direction) {
        case Direction::Up:
        case Direction::Left:
            farthest = std::min(farthest, line);
            if (line == -1)
                return std::min(farthest, smallestAxisException(range, axisOf(direction), -1));
            break;
        case Direction::Right: farthest = std::max(farthest, line); break;
        case Direction::Down: farthest = std::max(start, line); break;
        }
    }
    return farthest;
}

int SelectionMoves::smallestAxisException(Range const& range, Axis axis, int above) {
    int smallest = -1;
    for (int const line : range.*rangeAxis(axis).excludedLines) {
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
