#include "model/RangeExpansion.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// Calls visit(row, col) for every cell of a range, row by row.
template <class Visit>
void forEachCell(Range const& range, int rows, int cols, Visit visit) {
    if (range.type == RangeType::None)
        return;
    bool const wide = range.type == RangeType::Row || range.type == RangeType::Table;
    bool const high = range.type == RangeType::Column || range.type == RangeType::Table;
    int const endRow = high ? rows : range.row + 1;
    int const endCol = wide ? cols : range.col + 1;
    for (int row = range.row; row < endRow; ++row) {
        for (int col = range.col; col < endCol; ++col)
            visit(row, col);
    }
}

bool isMainCell(Range const& range, int row, int col) {
    if (!range.hasMainCell)
        return false;
    switch (range.type) {
    case RangeType::Cell: return true;
    case RangeType::Row: return range.mainIndex == col;
    case RangeType::Column: return range.mainIndex == row;
    case RangeType::Table: return range.mainRow == row && range.mainCol == col;
    case RangeType::None: break;
    }
    return false;
}

/// The content that a range holds for one of its cells; invalid without such an element.
QVariant heldValue(Range const& range, std::vector<QVariant> const& line,
                   std::vector<std::vector<QVariant>> const& table, int row, int col) {
    auto const at = [](auto const& list, int index) -> decltype(list.data()) {
        return index >= 0 && std::size_t(index) < list.size() ? &list[std::size_t(index)] : nullptr;
    };
    int const rowOffset = row - range.row;
    int const colOffset = col - range.col;
    QVariant const* element = nullptr;
    if (range.type == RangeType::Table) {
        if (auto const* const tableRow = at(table, rowOffset))
            element = at(*tableRow, colOffset);
    } else {
        element = at(line, range.type == RangeType::Row ? colOffset : rowOffset);
    }
    return element ? *element : QVariant();
}

} // namespace

std::vector<RangeExpansion::Place> RangeExpansion::placesOf(RangeVector const& ranges) const {
    std::vector<Place> places;
    for (std::size_t source = 0; source < ranges.size(); ++source)
        forEachCell(ranges[source], rows, cols, [&](int row, int col) { places.push_back({row, col, source}); });
    return places;
}

std::vector<RangeVector> RangeExpansion::cellsByRows(RangeVector const& ranges, Reader const& value,
                                                     Reader const& oldValue) const {
    return cellsByLines(Axis::Rows, ranges, value, oldValue);
}

std::vector<RangeVector> RangeExpansion::cellsByCols(RangeVector const& ranges, Reader const& value,
                                                     Reader const& oldValue) const {
    return cellsByLines(Axis::Columns, ranges, value, oldValue);
}

std::vector<RangeVector> RangeExpansion::cellsByLines(Axis axis, RangeVector const& ranges, Reader const& value,
                                                      Reader const& oldValue) const {
    // Of several ranges over one cell the one that starts first gives it.
    std::vector<std::size_t> rank(ranges.size());
    std::vector<std::size_t> order(ranges.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return std::pair(ranges[a].row, ranges[a].col) < std::pair(ranges[b].row, ranges[b].col);
    });
    for (std::size_t i = 0; i < order.size(); ++i)
        rank[order[i]] = i;

    auto const position = [axis](Place const& place) {
        return axis == Axis::Rows ? std::pair(place.row, place.col) : std::pair(place.col, place.row);
    };
    std::vector<Place> places = placesOf(ranges);
    std::sort(places.begin(), places.end(), [&](Place const& a, Place const& b) {
        return std::pair(position(a), rank[a.source]) < std::pair(position(b), rank[b.source]);
    });
    auto const end = std::unique(places.begin(), places.end(),
                                 [&](Place const& a, Place const& b) { return position(a) == position(b); });

    std::vector<RangeVector> lines;
    int line = 0;
    for (auto place = places.begin(); place != end; ++place) {
        int const placeLine = position(*place).first;
        if (lines.empty() || placeLine != line)
            lines.emplace_back();
        line = placeLine;
        Range const& source = ranges[place->source];
        Range cell = source.type == RangeType::Cell ? source : Range(place->row, place->col, RangeIndexType::Model);
        cell.hasMainCell = isMainCell(source, place->row, place->col);
        if (value)
            cell.setValue(value(place->row, place->col));
        if (oldValue)
            cell.setOldValue(oldValue(place->row, place->col));
        lines.back().push_back(std::move(cell));
    }
    return lines;
}

std::vector<RangeVector> RangeExpansion::cellBlocksHorizontal(RangeVector const& ranges, Reader const& value,
                                                              Reader const& oldValue) const {
    std::vector<RangeVector> blocks;
    for (RangeVector& row : cellsByRows(ranges, value, oldValue)) {
        for (Range& cell : row) {
            bool const continues =
                !blocks.empty() && blocks.back().back().row == cell.row && blocks.back().back().col + 1 == cell.col;
            if (!continues)
                blocks.emplace_back();
            blocks.back().push_back(std::move(cell));
        }
    }
    return blocks;
}

RangeVector RangeExpansion::cellsOnly(RangeVector const& ranges) const {
    RangeVector cells;
    for (Range const& range : ranges) {
        if (range.type == RangeType::Cell) {
            cells.push_back(range);
            continue;
        }
        forEachCell(range, rows, cols, [&](int row, int col) {
            Range cell(row, col, range.indexType);
            cell.setValue(heldValue(range, range.lineValues(), range.tableValues(), row, col));
            cell.setOldValue(heldValue(range, range.lineOldValues(), range.tableOldValues(), row, col));
            cell.hasMainCell = isMainCell(range, row, col);
            cells.push_back(std::move(cell));
        });
    }
    return cells;
}

std::vector<QVariant> RangeExpansion::cellValues(RangeVector const& ranges, Reader const& value) const {
    std::vector<Place> const places = placesOf(ranges);
    std::vector<QVariant> values;
    values.reserve(places.size());
    for (Place const& place : places)
        values.push_back(value(place.row, place.col));
    return values;
}

RangeExpansion::Indexes RangeExpansion::touchedLines(RangeVector const& ranges, Axis axis) const {
    bool const byRow = axis == Axis::Rows;
    RangeType const single = byRow ? RangeType::Row : RangeType::Column;
    Indexes lines;
    for (Range const& range : ranges) {
        int const start = byRow ? range.row : range.col;
        if (range.type == RangeType::Cell || range.type == single) {
            lines.push_back(start);
        } else if (range.type != RangeType::None) {
            for (int line = start; line < (byRow ? rows : cols); ++line)
                lines.push_back(line);
        }
    }
    return lines;
}
