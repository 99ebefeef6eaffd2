#pragma once

#include "model/RangeAxis.h"
#include "model/SelectionShift.h"
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

    /// One copy of each range for every line from where it stands to where the steps lead it, inside the view.
    void grow(int Range::*line, std::vector<SelectionType> const& steps, ShiftBounds const& bounds) {
        std::vector<Range> const base = std::exchange(list, {});
        for (Range const& range : base) {
            Range moved = range;
            for (SelectionType const step : steps) {
                bool const forwards = int(step) % 2 == 1;
                if (step < SelectionType::BlockUp) {
                    moved.*line += forwards ? 1 : -1;
                    continue;
                }
                moved.*line = std::clamp(moved.*line, 0, bounds.lineCount - 1);
                moved.*line = bounds.nextBlock(moved.row, moved.col, directionOf(step));
            }
            int const end = std::clamp(moved.*line, 0, bounds.lineCount - 1);
            for (int at = std::min(range.*line, end); at <= std::max(range.*line, end); ++at) {
                list.push_back(range);
                list.back().*line = at;
            }
        }
        sanitize();
    }

    /// Cells, whole lines and the main cell behind line `last` go back to it. Returns whether any did.
    bool pullBack(int Range::*line, RangeType lineType, int last) {
        bool moved = main.*line > last;
        main.*line = std::min(main.*line, last);
        for (Range& range : list) {
            if (range.*line > last && (range.type == RangeType::Cell || range.type == lineType)) {
                range.*line = last;
                moved = true;
            }
        }
        if (moved)
            sanitize();
        return moved;
    }

    /// What is left of the lines behind the header: lines of which nothing was selected whole, others by cells. Where
    /// only ranges across all lines are selected, such ranges are left.
    void invert(Axis axis, GridSize data, int header) {
        RangeAxis const& names = rangeAxis(axis);
        std::vector<Range> const old = std::exchange(list, {});
        auto const selected = [&](int line, int position) {
            Range const cell = names.cell(line, position);
            return std::any_of(old.begin(), old.end(),
                               [&](Range const& range) { return rangeCoversCell(range, cell.row, cell.col); });
        };
        bool const onlyAcross = std::all_of(old.begin(), old.end(), [&](Range const& range) {
            return range.type != RangeType::Cell && range.type != names.lineType && !range.hasExclusions() &&
                   range.*names.line <= header;
        });
        std::vector<Range> left; // cells
        for (int line = header; line < data.*names.lineCount; ++line) {
            std::size_t const before = left.size();
            for (int position = 0; position < data.*names.positionCount; ++position) {
                if (!selected(line, position))
                    left.push_back(names.cell(line, position));
            }
            bool const untouched = int(left.size() - before) == data.*names.positionCount;
            for (std::size_t i = before; i < left.size(); ++i) {
                Range range = left[i];
                range.type = onlyAcross ? names.crossType : untouched ? names.lineType : RangeType::Cell;
                if (onlyAcross ? line == header : !untouched || i == before)
                    list.push_back(range);
            }
        }
        main = left.empty() ? modelCell(0, 0) : left.front();
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
