#include "model/SelectionSize.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace {

int bounded(qint64 count) {
    return int(std::clamp<qint64>(count, 0, INT_MAX));
}

qint64 numCellsInView(LineRun const& run, GridSize view) {
    Range const& range = run.range;
    switch (range.type) {
    case RangeType::Row: return qint64(view.cols - range.col) * run.count;
    case RangeType::Column: return qint64(view.rows - range.row) * run.count;
    case RangeType::Table: return qint64(view.rows - range.row) * (view.cols - range.col);
    case RangeType::Cell:
    case RangeType::None: break;
    }
    return 0;
}

/// The cells that follow the start of a table in the list.
qint64 numCellsBehind(CellRegion const& cells, LineRun const& table) {
    int const col = table.range.col + (table.behindCell ? 1 : 0);
    CellRegion const ahead = CellRegion({INT_MIN, INT_MIN, table.range.row - 1, INT_MAX}) |
                             CellRegion({table.range.row, INT_MIN, table.range.row, col - 1});
    return (cells - ahead).count();
}

} // namespace

RangeSize selectionSize(RangeSet const& ranges, GridSize view) {
    RangeSize size;
    qint64 rows = 0;
    qint64 cols = 0;
    LineRun const* lastTable = nullptr;
    auto const start = [](LineRun const& run) { return std::pair(run.range.row, run.range.col); };
    for (LineRun const& run : ranges.lines()) {
        rows += run.range.type == RangeType::Row ? run.count : 0;
        cols += run.range.type == RangeType::Column ? run.count : 0;
        if (run.range.type == RangeType::Table && (!lastTable || start(run) >= start(*lastTable)))
            lastTable = &run;
    }
    size.rows = bounded(rows);
    size.cols = bounded(cols);
    size.cells =
        bounded(lastTable ? bounded(numCellsInView(*lastTable, view)) + numCellsBehind(ranges.cells(), *lastTable)
                          : ranges.cells().count());
    if (ranges.lines().empty() && ranges.cells().isRect()) {
        CellRect const rect = ranges.cells().bounds();
        size.height = rect.bottom - rect.top + 1;
        size.width = rect.right - rect.left + 1;
    }
    return size;
}

RangeSize rectangleSize(Range const& corner, Range const& opposite) {
    RangeSize size;
    size.height = std::abs(opposite.row - corner.row) + 1;
    size.width = std::abs(opposite.col - corner.col) + 1;
    return size;
}

qint64 numCellsInView(RangeSet const& ranges, GridSize view) {
    qint64 cells = ranges.cells().count();
    for (LineRun const& run : ranges.lines())
        cells += numCellsInView(run, view);
    return cells;
}
