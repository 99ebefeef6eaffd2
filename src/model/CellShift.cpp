#include "model/CellShift.h"

#include "model/SelectedCellWalk.h"
#include "model/TableModel.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace {

using Places = std::vector<std::pair<int, int>>; // line and position along it

Places placesOf(TableModel const& model, RangeSet const& ranges, Axis axis) {
    SelectedCellWalk walk(model.getModelRange(ranges), {model.rowCountModel(), model.columnCountModel()});
    Places places;
    int row = 0;
    std::vector<int> cols;
    while (walk.next(row, cols)) {
        for (int const col : cols)
            places.push_back(axis == Axis::Rows ? std::pair(row, col) : std::pair(col, row));
    }
    if (axis == Axis::Columns)
        std::sort(places.begin(), places.end());
    return places;
}

/// One line of the table in which cells are shifted, with its positions Model.
class ShiftedLine {
public:
    ShiftedLine(TableModel const& model, Axis axis, int line, CellPatch& patch)
        : data(model.getTableData()), rows(axis == Axis::Rows), patch(patch) {
        rawLine = rows ? data.getRawFromModelRow(line) : data.getRawFromModelCol(line);
        end = rows ? model.columnCountModel() : model.rowCountModel();
        while (end > 0 && bytesAt(end - 1).empty())
            --end;
    }

    /// `selected` holds this line's places in ascending order.
    void shift(std::span<std::pair<int, int> const> selected, CellShift shift) {
        auto next = selected.begin();
        auto const isSelected = [&](int position) {
            bool const found = next != selected.end() && next->second == position;
            next += found;
            return found;
        };
        int const first = selected.front().second;
        int target = first;
        if (shift == CellShift::Insert) {
            for (int source = first; source < end; ++target)
                put(target, isSelected(target) ? std::string_view() : bytesAt(source++));
            return;
        }
        for (int source = first; source < end && shift == CellShift::Remove; ++source) {
            if (!isSelected(source))
                put(target++, bytesAt(source));
        }
        for (; target < end; ++target)
            put(target, {});
    }

private:
    int rawPosition(int position) const {
        return rows ? data.getRawFromModelCol(position) : data.getRawFromModelRow(position);
    }
    std::string_view bytesAt(int position) const {
        int const raw = rawPosition(position);
        return rows ? data.cellBytesRaw(rawLine, raw) : data.cellBytesRaw(raw, rawLine);
    }
    void put(int position, std::string_view bytes) {
        if (bytesAt(position) == bytes)
            return;
        int const raw = rawPosition(position);
        rows ? patch.add(rawLine, raw, bytes) : patch.add(raw, rawLine, bytes);
    }

    TableData const& data;
    bool rows;
    CellPatch& patch;
    int rawLine = 0;
    int end = 0; ///< behind the last cell with content
};

} // namespace

CellPatch shiftedCells(TableModel const& model, RangeSet const& ranges, Axis axis, CellShift shift) {
    CellPatch patch;
    Places const places = placesOf(model, ranges, axis);
    for (auto first = places.begin(); first != places.end();) {
        int const line = first->first;
        auto const last = std::find_if(first, places.end(), [line](auto const& place) { return place.first != line; });
        ShiftedLine(model, axis, line, patch).shift({first, last}, shift);
        first = last;
    }
    return patch;
}
