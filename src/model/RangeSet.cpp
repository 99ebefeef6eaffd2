#include "model/RangeSet.h"

#include "model/RangeAxis.h"
#include "model/RangeOrder.h"
#include "model/SelectionMembership.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <numeric>
#include <unordered_set>

namespace {

/// Up to here a walk over the lines is as fast as a look-up.
constexpr std::size_t fewLines = 16;

/// Makes neighbours one run, upwards and downwards. Returns false if they are none.
bool joinRuns(LineRun& run, LineRun const& next) {
    if (run.range.type != next.range.type || run.position() != next.position() || !run.isPlain() || !next.isPlain())
        return false;
    if (next.firstLine() == run.lastLine() + 1) {
        run.count += next.count;
        return true;
    }
    if (next.lastLine() + 1 == run.firstLine()) {
        int const count = run.count + next.count;
        run = next;
        run.count = count;
        return true;
    }
    return false;
}

/// A range of a list without its contents.
LineRun bareRun(Range const& range) {
    LineRun run;
    copyWithoutValues(run.range, range);
    run.range.rowEnd = range.rowEnd;
    run.range.colEnd = range.colEnd;
    run.range.hasMainCell = false;
    run.range.mainIndex = run.range.mainRow = run.range.mainCol = -1;
    return run;
}

/// The main cell of a flagged range, whose offsets count from its start.
std::pair<int, int> mainCellOf(Range const& range) {
    switch (range.type) {
    case RangeType::Row: return {range.row, range.col + range.mainIndex};
    case RangeType::Column: return {range.row + range.mainIndex, range.col};
    case RangeType::Table: return {range.row + range.mainRow, range.col + range.mainCol};
    default: return {range.row, range.col};
    }
}

std::uint64_t startKey(Range const& range) {
    return (std::uint64_t(std::uint32_t(range.row)) << 32) | std::uint32_t(range.col);
}

void flagMainCell(Range& range, std::pair<int, int> main) {
    range.hasMainCell = range.containsRange(Range(main.first, main.second, range.indexType));
    if (!range.hasMainCell)
        return;
    if (range.type == RangeType::Row) {
        range.mainIndex = main.second - range.col;
    } else if (range.type == RangeType::Column) {
        range.mainIndex = main.first - range.row;
    } else if (range.type == RangeType::Table) {
        range.mainRow = main.first - range.row;
        range.mainCol = main.second - range.col;
    }
}

/// The cells between a run of lines or a table and the end of a grid.
CellRect extentOf(LineRun const& run, GridSize grid) {
    CellRect rect{run.range.row, run.range.col, grid.rows - 1, grid.cols - 1};
    if (run.range.type == RangeType::Row)
        rect.bottom = std::min(run.lastLine(), rect.bottom);
    else if (run.range.type == RangeType::Column)
        rect.right = std::min(run.lastLine(), rect.right);
    return rect;
}

/// What the exclusions of a range take out of its extent.
CellRegion exclusionsOf(Range const& range) {
    std::vector<CellRect> out;
    if (range.type != RangeType::Row) {
        for (int const row : range.excludedRows())
            out.push_back({row, 0, row, INT_MAX});
    }
    if (range.type != RangeType::Column) {
        for (int const col : range.excludedCols())
            out.push_back({0, col, INT_MAX, col});
    }
    if (range.type == RangeType::Table) {
        for (auto const& [row, col] : range.excludedCells())
            out.push_back({row, col, row, col});
    }
    return CellRegion::ofRects(out);
}

/// Puts runs of numbers in order and joins those that overlap or adjoin.
void joinLines(std::vector<std::pair<int, int>>& lines) {
    std::sort(lines.begin(), lines.end());
    std::size_t kept = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (std::int64_t(lines[kept].second) + 1 >= lines[i].first)
            lines[kept].second = std::max(lines[kept].second, lines[i].second);
        else
            lines[++kept] = lines[i];
    }
    if (!lines.empty())
        lines.resize(kept + 1);
}

} // namespace

bool LineRun::isPlain() const {
    return (range.type == RangeType::Row || range.type == RangeType::Column) && !range.hasExclusions() &&
           range.rowEnd == INT_MAX && range.colEnd == INT_MAX;
}

Range LineRun::at(int line) const {
    Range single = range;
    (range.type == RangeType::Column ? single.col : single.row) = line;
    return single;
}

LineRun LineRun::part(int first, int last) const {
    LineRun part = *this;
    (range.type == RangeType::Column ? part.range.col : part.range.row) = first;
    part.count = last - first + 1;
    return part;
}

// Making.

RangeSet::RangeSet(RangeVector const& ranges) {
    add(ranges);
}

RangeSet RangeSet::ofLines(Axis axis, int first, int last, int start) {
    RangeSet set;
    LineRun run;
    run.range = Range(first, rangeAxis(axis).lineType, RangeIndexType::Model);
    run.range.*rangeAxis(axis).position = start;
    run.count = last - first + 1;
    if (run.count > 0)
        set.addLines(run);
    return set;
}

void RangeSet::add(RangeVector const& ranges) {
    if (isEmpty() && !ranges.empty())
        indexType = ranges.front().indexType;
    std::vector<std::pair<int, int>> cells;
    std::unordered_set<std::uint64_t> starts; // of the lines so far
    std::vector<LineRun> newRuns;
    for (Range const& range : ranges) {
        if (range.type == RangeType::None)
            continue;
        if (range.hasMainCell && !main)
            main = mainCellOf(range);
        if (range.type == RangeType::Cell) {
            if (starts.empty() || !starts.contains(startKey(range)))
                cells.emplace_back(range.row, range.col);
            continue;
        }
        LineRun run = bareRun(range);
        if (range.type == RangeType::Table)
            run.behindCell = region.contains(range.row, range.col) ||
                             std::find(cells.begin(), cells.end(), std::pair(range.row, range.col)) != cells.end();
        else
            starts.insert(startKey(range));
        if (newRuns.empty() || !joinRuns(newRuns.back(), run))
            newRuns.push_back(std::move(run));
    }
    // The cells come before the lines of the list that do not take them in.
    addCells(CellRegion::ofCells(std::move(cells)));
    for (LineRun& run : newRuns)
        append(std::move(run));
}

void RangeSet::add(RangeSet const& other) {
    CellRegion const before = region;
    addCells(other.region);
    for (LineRun run : other.runs) {
        run.behindCell =
            run.range.type == RangeType::Table && (run.behindCell || before.contains(run.range.row, run.range.col));
        append(std::move(run));
    }
    if (!main)
        main = other.main;
}

/// The places where whole rows and columns start.
CellRegion RangeSet::lineStarts() const {
    std::vector<CellRect> starts;
    for (LineRun const& run : runs) {
        if (run.range.type == RangeType::Row)
            starts.push_back({run.firstLine(), run.position(), run.lastLine(), run.position()});
        else if (run.range.type == RangeType::Column)
            starts.push_back({run.position(), run.firstLine(), run.position(), run.lastLine()});
    }
    return CellRegion::ofRects(starts);
}

void RangeSet::addCells(CellRegion const& cells) {
    for (LineRun& run : runs)
        run.behindCell = run.behindCell && region.contains(run.range.row, run.range.col);
    region = runs.empty() ? region | cells : region | (cells - lineStarts());
}

void RangeSet::addLines(LineRun const& lines) {
    LineRun run = lines;
    if (run.range.type == RangeType::Table)
        run.behindCell = region.contains(run.range.row, run.range.col);
    append(std::move(run));
}

void RangeSet::append(LineRun run) {
    indexed = false;
    if (runs.empty() || !joinRuns(runs.back(), run))
        runs.push_back(std::move(run));
}

std::vector<LineRun>& RangeSet::editLines() {
    indexed = false;
    return runs;
}

// Looking.

bool RangeSet::lineCovers(LineRun const& run, int row, int col) const {
    if (run.count == 1)
        return rangeCoversCell(run.range, row, col);
    bool const isRow = run.range.type == RangeType::Row;
    return run.holdsLine(isRow ? row : col) && (isRow ? col : row) >= run.position();
}

bool RangeSet::covers(int row, int col) const {
    if (region.contains(row, col))
        return true;
    auto const covering = [&](LineRun const& run) { return lineCovers(run, row, col); };
    if (runs.size() <= fewLines)
        return std::any_of(runs.begin(), runs.end(), covering);
    buildIndex();
    return anyLineAt(rowIndex, row, row, col) || anyLineAt(colIndex, col, row, col) ||
           std::any_of(tables.begin(), tables.end(), [&](std::size_t table) { return covering(runs[table]); });
}

bool RangeSet::anyLineAt(LineIndex const& index, int line, int row, int col) const {
    auto const behind = std::upper_bound(index.order.begin(), index.order.end(), line,
                                         [&](int at, std::size_t run) { return at < runs[run].firstLine(); });
    for (std::size_t i = std::size_t(behind - index.order.begin()); i-- > 0 && index.reach[i] >= line;) {
        if (lineCovers(runs[index.order[i]], row, col))
            return true;
    }
    return false;
}

void RangeSet::buildIndex() const {
    if (std::exchange(indexed, true))
        return;
    auto const build = [this](LineIndex& index, RangeType type) {
        index.order.clear();
        for (std::size_t i = 0; i < runs.size(); ++i) {
            if (runs[i].range.type == type)
                index.order.push_back(i);
        }
        auto const before = [this](std::size_t a, std::size_t b) { return runs[a].firstLine() < runs[b].firstLine(); };
        if (!std::is_sorted(index.order.begin(), index.order.end(), before))
            std::sort(index.order.begin(), index.order.end(), before);
        index.reach.clear();
        for (std::size_t const run : index.order)
            index.reach.push_back(std::max(index.reach.empty() ? INT_MIN : index.reach.back(), runs[run].lastLine()));
    };
    build(rowIndex, RangeType::Row);
    build(colIndex, RangeType::Column);
    tables.clear();
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (runs[i].range.type == RangeType::Table)
            tables.push_back(i);
    }
}

bool RangeSet::contains(Range const& range) const {
    if (range.type == RangeType::Cell && region.contains(range.row, range.col))
        return true;
    return std::any_of(runs.begin(), runs.end(), [&](LineRun const& run) {
        int const line = run.range.type == RangeType::Column ? range.col : range.row;
        return run.count > 1 ? run.holdsLine(line) && run.at(line).containsRange(range)
                             : run.range.containsRange(range);
    });
}

bool RangeSet::hasLine(Axis axis, int line) const {
    RangeType const type = rangeAxis(axis).lineType;
    if (runs.size() <= fewLines)
        return std::any_of(runs.begin(), runs.end(),
                           [&](LineRun const& run) { return run.range.type == type && run.holdsLine(line); });
    buildIndex();
    LineIndex const& index = axis == Axis::Rows ? rowIndex : colIndex;
    auto const behind = std::upper_bound(index.order.begin(), index.order.end(), line,
                                         [&](int at, std::size_t run) { return at < runs[run].firstLine(); });
    return behind != index.order.begin() && index.reach[std::size_t(behind - index.order.begin()) - 1] >= line;
}

CellRegion RangeSet::coverage(GridSize grid, bool withExclusions) const {
    std::vector<CellRect> whole;
    CellRegion covered = region;
    for (LineRun const& run : runs) {
        CellRect const extent = extentOf(run, grid);
        if (withExclusions && !run.isPlain())
            covered = covered | (CellRegion(extent) - exclusionsOf(run.range));
        else
            whole.push_back(extent);
    }
    return covered | CellRegion::ofRects(whole);
}

bool RangeSet::hasAcross(Axis axis) const {
    RangeType const along = rangeAxis(axis).lineType;
    return std::any_of(runs.begin(), runs.end(), [&](LineRun const& run) { return run.range.type != along; });
}

std::vector<std::pair<int, int>> RangeSet::startLines(Axis axis) const {
    RangeType const along = rangeAxis(axis).lineType;
    std::vector<std::pair<int, int>> lines;
    for (CellRect const& rect : region.rects())
        lines.push_back(axis == Axis::Rows ? std::pair(rect.top, rect.bottom) : std::pair(rect.left, rect.right));
    for (LineRun const& run : runs) {
        if (run.range.type == along)
            lines.emplace_back(run.firstLine(), run.lastLine());
    }
    joinLines(lines);
    return lines;
}

std::vector<int> RangeSet::touchedLines(Axis axis, int count) const {
    std::vector<std::pair<int, int>> lines = startLines(axis);
    for (LineRun const& run : runs) {
        int const start = run.range.*rangeAxis(axis).line;
        if (run.range.type != rangeAxis(axis).lineType && start < count)
            lines.emplace_back(start, count - 1);
    }
    joinLines(lines);
    std::vector<int> all;
    for (auto const& [first, last] : lines) {
        all.resize(all.size() + std::size_t(last - first + 1));
        std::iota(all.end() - (last - first + 1), all.end(), first);
    }
    return all;
}

int RangeSet::firstStart(Axis axis) const {
    CellRect const bounds = region.bounds();
    int first = region.isEmpty() ? INT_MAX : axis == Axis::Rows ? bounds.top : bounds.left;
    for (LineRun const& run : runs)
        first = std::min(first, run.range.*rangeAxis(axis).line);
    return first;
}

int RangeSet::lastStart(Axis axis) const {
    CellRect const bounds = region.bounds();
    int last = region.isEmpty() ? 0 : std::max(axis == Axis::Rows ? bounds.bottom : bounds.right, 0);
    for (LineRun const& run : runs) {
        if (run.range.type == rangeAxis(axis).lineType)
            last = std::max(last, run.lastLine());
    }
    return last;
}

// Moving.

RangeSet RangeSet::moved(int rows, int cols) const {
    RangeSet result = *this;
    result.indexed = false;
    result.region = region.moved(rows, cols);
    for (LineRun& run : result.runs) {
        run.range.row += rows;
        run.range.col += cols;
    }
    if (result.main)
        result.main = {main->first + rows, main->second + cols};
    return result;
}

RangeSet RangeSet::movedInside(int rows, int cols) const {
    RangeSet result = moved(rows, cols);
    result.region = result.region.clampedTo({0, 0, INT_MAX, INT_MAX});
    for (LineRun& run : result.runs) {
        if (run.firstLine() < 0)
            run = run.part(0, std::max(run.lastLine(), 0));
        run.range.row = std::max(run.range.row, 0);
        run.range.col = std::max(run.range.col, 0);
    }
    if (result.main)
        result.main = {std::max(result.main->first, 0), std::max(result.main->second, 0)};
    return result;
}

// The list.

RangeVector RangeSet::ranges(Order order, std::optional<std::pair<int, int>> mainCell) const {
    RangeVector list;
    std::int64_t count = region.count();
    for (LineRun const& run : runs)
        count += run.count;
    list.reserve(std::size_t(count));
    auto const addRun = [&](LineRun const& run) {
        for (int line = run.firstLine(); line <= run.lastLine(); ++line) {
            list.push_back(run.count > 1 ? run.at(line) : run.range);
            list.back().indexType = indexType;
        }
    };
    auto const comesFirst = [&](LineRun const& run) {
        return run.range.type == RangeType::Table && !run.behindCell && region.contains(run.range.row, run.range.col);
    };
    for (LineRun const& run : runs) {
        if (comesFirst(run))
            addRun(run);
    }
    for (CellRect const& rect : region.rects()) {
        for (int row = rect.top; row <= rect.bottom; ++row) {
            for (int col = rect.left; col <= rect.right; ++col)
                list.emplace_back(row, col, indexType);
        }
    }
    for (LineRun const& run : runs) {
        if (!comesFirst(run))
            addRun(run);
    }
    sortByRowThenColumn(list);
    if (order == Order::ByColumn)
        sortByColumn(list);
    if (mainCell) {
        for (Range& range : list)
            flagMainCell(range, *mainCell);
    }
    return list;
}
