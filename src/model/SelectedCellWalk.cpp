#include "model/SelectedCellWalk.h"

#include "model/SelectionMembership.h"

#include <algorithm>
#include <limits>

SelectedCellWalk::SelectedCellWalk(RangeVector const& ranges, GridSize data)
    : ranges(ranges), data(data), firstDownward(std::numeric_limits<int>::max()) {
    for (Range const& range : this->ranges) {
        if (range.type == RangeType::Column || range.type == RangeType::Table) {
            downwards.push_back(&range);
            firstDownward = std::min(firstDownward, range.row);
        } else if (range.type != RangeType::None) {
            inOneRow.push_back(&range);
        }
    }
    std::stable_sort(inOneRow.begin(), inOneRow.end(), [](Range const* a, Range const* b) { return a->row < b->row; });
}

int SelectedCellWalk::nextOccupiedRow() const {
    int const single = position < inOneRow.size() ? inOneRow[position]->row : std::numeric_limits<int>::max();
    int const downward = downwards.empty() ? std::numeric_limits<int>::max() : std::max(firstDownward, row);
    return std::min(single, downward);
}

bool SelectedCellWalk::next(int& foundRow, std::vector<int>& cols) {
    cols.clear();
    while (cols.empty()) {
        row = nextOccupiedRow();
        if (row >= data.rows)
            return false;
        for (Range const* const range : downwards)
            addRange(*range, cols);
        for (; position < inOneRow.size() && inOneRow[position]->row == row; ++position)
            addRange(*inOneRow[position], cols);
        std::sort(cols.begin(), cols.end());
        cols.erase(std::unique(cols.begin(), cols.end()), cols.end());
        foundRow = row++;
    }
    return true;
}

void SelectedCellWalk::addRange(Range const& range, std::vector<int>& cols) const {
    bool const toTheEnd = range.type == RangeType::Row || range.type == RangeType::Table;
    int const last = toTheEnd ? data.cols - 1 : std::min(range.col, data.cols - 1);
    for (int col = range.col; col <= last; ++col) {
        if (rangeCoversCell(range, row, col))
            cols.push_back(col);
    }
}
