#include "model/SelectionRules.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <climits>
#include <map>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace {

/// Lines that are taken already, of one type and from one position on.
class TakenSpans {
public:
    /// The parts of a run that were not there yet, which are there from now on.
    std::vector<LineRun> add(LineRun const& run) {
        std::vector<LineRun> parts;
        int next = run.firstLine();
        int const last = run.lastLine();
        auto span = spans.upper_bound(next);
        if (span != spans.begin() && std::prev(span)->second >= next)
            next = std::prev(span)->second + 1;
        for (; next <= last; ++span) {
            int const free = span == spans.end() ? last : std::min(last, span->first - 1);
            if (next <= free)
                parts.push_back(run.part(next, free));
            if (span == spans.end())
                break;
            next = std::max(next, span->second + 1);
        }
        for (LineRun const& part : parts)
            spans[part.firstLine()] = part.lastLine();
        return parts;
    }

private:
    std::map<int, int> spans; ///< first and last line
};

/// Whether two ranges have the same type and start. A quick look, for very many lines are mostly in order.
bool hasRepeatedLines(std::vector<LineRun> const& runs) {
    std::vector<std::tuple<RangeType, int, int, int>> spans; // type, position, first and last line
    spans.reserve(runs.size());
    for (LineRun const& run : runs)
        spans.emplace_back(run.range.type, run.position(), run.firstLine(), run.lastLine());
    if (!std::is_sorted(spans.begin(), spans.end()))
        std::sort(spans.begin(), spans.end());
    auto const overlap = [](auto const& a, auto const& b) {
        return std::get<0>(a) == std::get<0>(b) && std::get<1>(a) == std::get<1>(b) && std::get<3>(a) >= std::get<2>(b);
    };
    return std::adjacent_find(spans.begin(), spans.end(), overlap) != spans.end();
}

/// Of ranges with the same type and start the first stays.
void dropRepeatedLines(RangeSet& ranges) {
    if (!hasRepeatedLines(ranges.lines()))
        return;
    std::map<std::pair<RangeType, int>, TakenSpans> taken;
    std::vector<LineRun> kept;
    for (LineRun const& run : ranges.lines()) {
        std::vector<LineRun> parts = taken[{run.range.type, run.position()}].add(run);
        std::move(parts.begin(), parts.end(), std::back_inserter(kept));
    }
    ranges.editLines() = std::move(kept);
}

/// The table that starts the list, null if another range does.
LineRun* frontTable(RangeSet& ranges) {
    auto const start = [](LineRun const& run) { return std::pair(run.range.row, run.range.col); };
    if (ranges.lines().empty())
        return nullptr;
    auto const first = std::min_element(ranges.lines().begin(), ranges.lines().end(),
                                        [&](LineRun const& a, LineRun const& b) { return start(a) < start(b); });
    bool const behindCell =
        !ranges.cells().isEmpty() &&
        (ranges.cells().first() < start(*first) || (ranges.cells().first() == start(*first) && first->behindCell));
    if (first->range.type != RangeType::Table || behindCell)
        return nullptr;
    return &ranges.editLines()[std::size_t(first - ranges.lines().begin())];
}

bool contains(std::vector<int> const& list, int number) {
    return std::find(list.begin(), list.end(), number) != list.end();
}

/// Whether the table leaves out any cell of `range`.
bool leavesOut(Range const& table, Range const& range) {
    const bool oneRow = range.type == RangeType::Row;
    const bool oneCol = range.type == RangeType::Column;
    const auto inRows = [&](int row) { return row >= range.row && (!oneRow || row == range.row); };
    const auto inCols = [&](int col) { return col >= range.col && (!oneCol || col == range.col); };
    const auto inRange = [&](auto const& cell) { return inRows(cell.first) && inCols(cell.second); };
    return std::any_of(table.excludedRows().begin(), table.excludedRows().end(), inRows) ||
           std::any_of(table.excludedCols().begin(), table.excludedCols().end(), inCols) ||
           std::any_of(table.excludedCells().begin(), table.excludedCells().end(), inRange);
}

void tidyExcludedCells(Range& table) {
    std::vector<std::pair<int, int>> cells = table.excludedCells();
    std::sort(cells.begin(), cells.end());
    cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
    std::erase_if(cells, [&](auto const& cell) {
        return cell.first < table.row || cell.second < table.col || contains(table.excludedRows(), cell.first) ||
               contains(table.excludedCols(), cell.second);
    });
    table.setExcludedCells(std::move(cells));
}

/// What lies in a table that starts the list adds nothing to it; a cell once taken out of the table returns to it.
void absorbIntoTable(RangeSet& ranges) {
    LineRun* const run = frontTable(ranges);
    if (!run)
        return;
    Range& table = run->range;
    tidyExcludedCells(table);
    std::vector<CellRect> left;
    for (int const row : table.excludedRows())
        left.push_back({row, table.col, row, table.colEnd});
    for (int const col : table.excludedCols())
        left.push_back({table.row, col, table.rowEnd, col});
    CellRegion const taken = CellRegion({table.row, table.col, table.rowEnd, table.colEnd}) - CellRegion::ofRects(left);
    std::vector<std::pair<int, int>> returned;
    std::vector<std::pair<int, int>> excluded;
    for (auto const& cell : table.excludedCells())
        (ranges.cells().contains(cell.first, cell.second) ? returned : excluded).push_back(cell);
    table.setExcludedCells(std::move(excluded));
    ranges.setCells(ranges.cells() - (taken | CellRegion::ofCells(std::move(returned))));

    Range const absorber = table;
    std::vector<LineRun> kept;
    for (LineRun const& other : ranges.lines()) {
        // Of a run only the line on the table's own first row or column can lie in it.
        int const line = other.range.type == RangeType::Column ? absorber.col : absorber.row;
        bool const isTable = &other == run;
        bool const absorbed = !isTable && other.holdsLine(line) && absorber.containsRange(other.at(line)) &&
                              !leavesOut(absorber, other.at(line));
        bool const tableInside = !isTable && other.range.type == RangeType::Table &&
                                 absorber.containsRange(other.range) && !leavesOut(absorber, other.range);
        if (tableInside)
            continue;
        if (!absorbed) {
            kept.push_back(other);
            continue;
        }
        if (other.firstLine() < line)
            kept.push_back(other.part(other.firstLine(), line - 1));
        if (line < other.lastLine())
            kept.push_back(other.part(line + 1, other.lastLine()));
    }
    ranges.editLines() = std::move(kept);
}

/// Drops the cells behind the start of a whole line in that line. The line's exclusions are not consulted: a cell once
/// taken out of a line cannot be put back by adding it.
void dropCellsBehindLines(RangeSet& ranges) {
    if (ranges.cells().isEmpty())
        return;
    std::vector<CellRect> behind;
    for (LineRun const& run : ranges.lines()) {
        if (run.position() == INT_MAX)
            continue;
        if (run.range.type == RangeType::Row)
            behind.push_back({run.firstLine(), run.position() + 1, run.lastLine(), INT_MAX});
        else if (run.range.type == RangeType::Column)
            behind.push_back({run.position() + 1, run.firstLine(), INT_MAX, run.lastLine()});
    }
    if (!behind.empty())
        ranges.setCells(ranges.cells() - CellRegion::ofRects(behind));
}

} // namespace

bool sanitizeRanges(RangeSet& ranges, Range& mainCell) {
    if (mainCell.row == -1 || mainCell.col == -1)
        throw std::runtime_error("Main cell not a single cell.");
    mainCell.hasMainCell = true;
    mainCell.type = RangeType::Cell;
    CellRegion const main({mainCell.row, mainCell.col, mainCell.row, mainCell.col});
    if (ranges.isEmpty()) {
        ranges.setCells(main);
        return false;
    }
    dropRepeatedLines(ranges);
    absorbIntoTable(ranges);
    dropCellsBehindLines(ranges);
    if (ranges.contains(mainCell))
        return false;
    ranges.addCells(main);
    return true;
}
