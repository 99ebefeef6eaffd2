#include "model/SelectedCellWalk.h"

SelectedCellWalk::SelectedCellWalk(RangeSet const& ranges, GridSize data)
    : rects((ranges.coverage(data, true) & CellRegion({0, 0, data.rows - 1, data.cols - 1})).rects()) {
    if (!rects.empty())
        row = rects.front().top;
}

bool SelectedCellWalk::next(int& foundRow, std::vector<int>& cols) {
    cols.clear();
    if (band == rects.size())
        return false;
    std::size_t behind = band;
    for (; behind < rects.size() && rects[behind].top == rects[band].top; ++behind) {
        for (int col = rects[behind].left; col <= rects[behind].right; ++col)
            cols.push_back(col);
    }
    foundRow = row;
    if (row++ == rects[band].bottom) {
        band = behind;
        if (band < rects.size())
            row = rects[band].top;
    }
    return true;
}
