#include "model/SelectionSize.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdlib>

namespace {

qint64 numCellsInView(Range const& range, GridSize view) {
    switch (range.type) {
    case RangeType::Cell: return 1;
    case RangeType::Row: return view.cols - range.col;
    case RangeType::Column: return view.rows - range.row;
    case RangeType::Table: return qint64(view.rows - range.row) * (view.cols - range.col);
    case RangeType::None: break;
    }
    return 0;
}

/// Sets height and width if the cells, in order of row and then column, fill a rectangle.
void measureRectangle(RangeVector const& cells, RangeSize& size) {
    if (cells.empty())
        return;
    Range const& corner = cells.front();
    const auto endOfFirstRow =
        std::find_if(cells.begin(), cells.end(), [&](Range const& cell) { return cell.row != corner.row; });
    const std::size_t width = std::size_t(endOfFirstRow - cells.begin());
    if (cells.size() % width != 0)
        return;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].row != corner.row + int(i / width) || cells[i].col != corner.col + int(i % width))
            return;
    }
    size.height = int(cells.size() / width);
    size.width = int(width);
}

} // namespace

RangeSize selectionSize(RangeVector const& ranges, GridSize view) {
    RangeSize size;
    bool onlyCells = true;
    for (Range const& range : ranges) {
        onlyCells = onlyCells && range.type == RangeType::Cell;
        switch (range.type) {
        case RangeType::Cell: ++size.cells; break;
        case RangeType::Row: ++size.rows; break;
        case RangeType::Column: ++size.cols; break;
        case RangeType::Table: size.cells = int(std::clamp<qint64>(numCellsInView(range, view), 0, INT_MAX)); break;
        case RangeType::None: break;
        }
    }
    if (onlyCells)
        measureRectangle(ranges, size);
    return size;
}

RangeSize rectangleSize(Range const& corner, Range const& opposite) {
    RangeSize size;
    size.height = std::abs(opposite.row - corner.row) + 1;
    size.width = std::abs(opposite.col - corner.col) + 1;
    return size;
}

qint64 numCellsInView(RangeVector const& ranges, GridSize view) {
    qint64 cells = 0;
    for (Range const& range : ranges)
        cells += numCellsInView(range, view);
    return cells;
}
