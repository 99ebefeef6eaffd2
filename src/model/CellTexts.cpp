#include "model/CellTexts.h"

#include "model/SelectedCellWalk.h"
#include "model/TableModel.h"

#include <algorithm>
#include <climits>
#include <tuple>
#include <utility>

namespace {

/// The size of the data, or of what holds all single cells if that is more.
GridSize reachOf(TableModel const& model, RangeSet const& ranges) {
    CellRect const cells = ranges.cells().bounds();
    return {std::max(model.rowCountModel(), cells.bottom + 1), std::max(model.columnCountModel(), cells.right + 1)};
}

/// Calls visit(row, col) for each cell, row by row. Indexes are Model.
template <class Visit>
void forEachCell(TableModel const& model, RangeSet const& ranges, Visit visit) {
    RangeSet const cells = model.getModelRange(ranges);
    SelectedCellWalk walk(cells, reachOf(model, cells));
    int row = 0;
    std::vector<int> cols;
    while (walk.next(row, cols)) {
        for (int const col : cols)
            visit(row, col);
    }
}

struct TopLeft {
    int row = INT_MAX;
    int col = INT_MAX;

    std::pair<int, int> transpose(int fromRow, int fromCol) const { return {row + fromCol - col, col + fromRow - row}; }
};

TopLeft topLeftOf(RangeVector const& ranges) {
    TopLeft corner;
    for (Range const& range : ranges) {
        corner.row = std::min(corner.row, range.row);
        corner.col = std::min(corner.col, range.col);
    }
    return corner;
}

} // namespace

CellPatch changedTexts(TableModel const& model, RangeSet const& ranges, TextChange const& change) {
    TableData const& data = model.getTableData();
    CellCodec const& codec = data.getCodec();
    CellPatch patch;
    forEachCell(model, ranges, [&](int row, int col) {
        int const rawRow = data.getRawFromModelRow(row);
        int const rawCol = data.getRawFromModelCol(col);
        std::string_view const present = data.cellBytesRaw(rawRow, rawCol);
        QString const text = codec.decode(present);
        QString const changed = change(text);
        if (changed == text)
            return;
        bool loses = false;
        AbstractDataContainer::Bytes const bytes = codec.encode(changed, &loses);
        patch.add(rawRow, rawCol, {bytes.data(), bytes.size()}, loses);
    });
    return patch;
}

CellPatch transposedCells(TableModel const& model, RangeSet const& ranges) {
    TableData const& data = model.getTableData();
    std::vector<std::pair<int, int>> sources;
    forEachCell(model, ranges, [&](int row, int col) { sources.emplace_back(row, col); });
    TopLeft corner;
    for (auto const& [row, col] : sources) {
        corner.row = std::min(corner.row, row);
        corner.col = std::min(corner.col, col);
    }
    CellPatch patch;
    auto const bytesOf = [&](std::pair<int, int> cell) {
        return data.cellBytesRaw(data.getRawFromModelRow(cell.first), data.getRawFromModelCol(cell.second));
    };
    auto const put = [&](std::pair<int, int> cell, std::string_view bytes) {
        if (bytesOf(cell) != bytes)
            patch.add(data.getRawFromModelRow(cell.first), data.getRawFromModelCol(cell.second), bytes);
    };
    for (auto const& source : sources) {
        put(corner.transpose(source.first, source.second), bytesOf(source));
        // What comes to a cell comes from the place to which its own content goes.
        std::pair<int, int> const origin = corner.transpose(source.first, source.second);
        if (!std::binary_search(sources.begin(), sources.end(), origin))
            put(source, {});
    }
    return patch;
}

RangeVector transposedRanges(RangeVector const& ranges) {
    TopLeft const corner = topLeftOf(ranges);
    RangeVector result;
    for (Range const& range : ranges) {
        Range& moved = result.emplace_back();
        copyWithoutValues(moved, range);
        std::tie(moved.row, moved.col) = corner.transpose(range.row, range.col);
        if (range.type == RangeType::Row || range.type == RangeType::Column)
            moved.type = range.type == RangeType::Row ? RangeType::Column : RangeType::Row;
        std::swap(moved.mainRow, moved.mainCol);
        std::vector<int> rows = range.excludedCols();
        for (int& row : rows)
            row += corner.row - corner.col;
        moved.setExcludedRows(std::move(rows));
        std::vector<int> cols = range.excludedRows();
        for (int& col : cols)
            col += corner.col - corner.row;
        moved.setExcludedCols(std::move(cols));
        std::vector<std::pair<int, int>> cells = range.excludedCells();
        for (auto& [row, col] : cells)
            std::tie(row, col) = corner.transpose(row, col);
        moved.setExcludedCells(std::move(cells));
    }
    return result;
}
