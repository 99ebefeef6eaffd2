#pragma once

#include "model/SelectionSize.h"
#include "tests/model/SelectionText.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

/// The rules of a selection, written down as a list of ranges with one element for each cell: slow and plain.
class SelectionOracle {
public:
    std::vector<Range> list;
    Range main = modelCell(0, 0);

    void sanitize() {
        if (list.empty())
            list.push_back(main);
        sortByRow();
        dropRepetitions();
        absorbIntoTable();
        dropBehind(RangeType::Row, &Range::row, &Range::col);
        std::stable_sort(list.begin(), list.end(), [](Range const& a, Range const& b) { return a.col < b.col; });
        dropBehind(RangeType::Column, &Range::col, &Range::row);
        bool const held =
            std::any_of(list.begin(), list.end(), [&](Range const& range) { return range.containsRange(main); });
        if (!held)
            list.push_back(main);
    }

    void sortByRow() {
        std::stable_sort(list.begin(), list.end(), [](Range const& a, Range const& b) {
            return std::pair(a.row, a.col) < std::pair(b.row, b.col);
        });
    }

    RangeSize size(GridSize view) {
        sortByRow();
        RangeSize size;
        for (Range const& range : list) {
            size.cells += range.type == RangeType::Cell;
            size.rows += range.type == RangeType::Row;
            size.cols += range.type == RangeType::Column;
            if (range.type == RangeType::Table)
                size.cells = std::max((view.rows - range.row) * (view.cols - range.col), 0);
        }
        int const width = int(
            std::count_if(list.begin(), list.end(), [&](Range const& range) { return range.row == list.front().row; }));
        bool rectangle = size.rows + size.cols == 0 && int(list.size()) == size.cells;
        for (std::size_t i = 0; i < list.size() && rectangle; ++i)
            rectangle = list[i].type == RangeType::Cell && list[i].row == list[0].row + int(i) / width &&
                        list[i].col == list[0].col + int(i) % width;
        if (rectangle && int(list.size()) % width == 0)
            std::tie(size.height, size.width) = std::pair(int(list.size()) / width, width);
        return size;
    }

    bool remove(int row, int col) {
        for (auto range = list.begin(); range != list.end(); ++range) {
            bool const atCell = range->row == row && range->col == col;
            if (range->type == RangeType::Cell && atCell) {
                if (range->containsRange(main))
                    return false;
                list.erase(range);
                return true;
            }
            if (range->type == RangeType::Cell || !range->containsRange(modelCell(row, col)))
                continue;
            if (!rangeCoversCell(*range, row, col))
                return false;
            if (range->type == RangeType::Row)
                range->setExcludedCols(with(range->excludedCols(), col));
            else if (range->type == RangeType::Column)
                range->setExcludedRows(with(range->excludedRows(), row));
            else
                range->setExcludedCells(with(range->excludedCells(), std::pair(row, col)));
            return true;
        }
        return false;
    }

    /// One copy of each range for every line from where it stands to `lines` further, inside the view.
    void grow(int Range::*line, int lines, int count) {
        std::vector<Range> const base = std::exchange(list, {});
        for (Range const& range : base) {
            int const end = std::clamp(range.*line + lines, 0, count - 1);
            for (int at = std::min(range.*line, end); at <= std::max(range.*line, end); ++at) {
                list.push_back(range);
                list.back().*line = at;
            }
        }
        sanitize();
    }

    RangeVector ranges() const { return RangeVector(list.begin(), list.end()); }

private:
    template <class Element>
    static std::vector<Element> with(std::vector<Element> list, Element added) {
        list.push_back(added);
        return list;
    }

    void dropRepetitions() {
        std::vector<Range> kept;
        for (Range const& range : list) {
            if (std::find(kept.begin(), kept.end(), range) == kept.end())
                kept.push_back(range);
        }
        list = kept;
    }

    void absorbIntoTable() {
        Range& table = list.front();
        if (table.type != RangeType::Table)
            return;
        auto excluded = table.excludedCells();
        std::sort(excluded.begin(), excluded.end());
        excluded.erase(std::unique(excluded.begin(), excluded.end()), excluded.end());
        auto const leavesOut = [&](Range const& range) {
            return std::any_of(excluded.begin(), excluded.end(), [&](auto const& cell) {
                return range.containsRange(modelCell(cell.first, cell.second));
            });
        };
        auto const out = excluded;
        for (auto range = list.begin() + 1; range != list.end();) {
            auto const cell = std::find(out.begin(), out.end(), std::pair(range->row, range->col));
            bool const returns = range->type == RangeType::Cell && cell != out.end();
            if (returns)
                std::erase(excluded, *cell);
            bool const inside = range->type == RangeType::Cell && table.containsRange(*range);
            range = returns || inside ? list.erase(range) : range + 1;
        }
        table.setExcludedCells(excluded);
        for (auto range = list.begin() + 1; range != list.end();)
            range = table.containsRange(*range) && !leavesOut(*range) ? list.erase(range) : range + 1;
    }

    void dropBehind(RangeType type, int Range::*line, int Range::*position) {
        std::vector<Range> kept;
        for (Range const& range : list) {
            bool const behind =
                range.type == RangeType::Cell && std::any_of(kept.begin(), kept.end(), [&](Range const& before) {
                    return before.type == type && before.*line == range.*line && before.*position <= range.*position;
                });
            if (!behind)
                kept.push_back(range);
        }
        list = kept;
    }
};
