#include "model/SelectionOrder.h"

#include "core/TextOrderKeys.h"
#include "model/SelectedCellWalk.h"
#include "model/TableModel.h"

#include <map>
#include <vector>

namespace {

/// Adds what changes when the cells of one line are put in order. Places are raw, row first.
void addSorted(CellPatch& patch, TableData const& data, std::vector<std::pair<int, int>> const& places, SortType type) {
    TextOrderKeys keys(data.getCaseSensitiveSorting());
    keys.reserve(places.size());
    for (auto const& [row, col] : places)
        keys.add(data.getCodec().decode(data.cellBytesRaw(row, col)));
    std::vector<int> const order = keys.sortedOrder(type == SortType::Descending);
    for (std::size_t i = 0; i < order.size(); ++i) {
        auto const [fromRow, fromCol] = places[static_cast<std::size_t>(order[i])];
        std::string_view const bytes = data.cellBytesRaw(fromRow, fromCol);
        if (bytes != data.cellBytesRaw(places[i].first, places[i].second))
            patch.add(places[i].first, places[i].second, bytes);
    }
}

} // namespace

CellPatch sortedCells(TableModel const& model, RangeSet const& ranges, Axis axis, SortType type) {
    TableData const& data = model.getTableData();
    SelectedCellWalk walk(ranges, {model.rowCountModel(), model.columnCountModel()});
    std::map<int, std::vector<std::pair<int, int>>> lines; // by the number of each line
    int row = 0;
    std::vector<int> cols;
    while (walk.next(row, cols)) {
        int const rawRow = data.getRawFromModelRow(row);
        for (int const col : cols) {
            int const rawCol = data.getRawFromModelCol(col);
            lines[axis == Axis::Rows ? rawRow : rawCol].emplace_back(rawRow, rawCol);
        }
    }
    CellPatch patch;
    for (auto const& [line, places] : lines)
        addSorted(patch, data, places, type);
    return patch;
}
