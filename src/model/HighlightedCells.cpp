#include "model/HighlightedCells.h"

#include <algorithm>
#include <utility>

void HighlightedCells::set(RangeVector rawRanges) {
    raw = std::move(rawRanges);
    invalidate();
}

bool HighlightedCells::covers(int row, int col, IndexSpaces const& spaces) const {
    if (raw.empty())
        return false;
    convert(spaces);
    return membership.coversCell(model, row, col);
}

Range const* HighlightedCells::startingAt(int row, int col, IndexSpaces const& spaces) const {
    if (raw.empty())
        return nullptr;
    convert(spaces);
    auto const found = std::find_if(model.begin(), model.end(),
                                    [=](Range const& range) { return range.row == row && range.col == col; });
    return found == model.end() ? nullptr : &*found;
}

void HighlightedCells::convert(IndexSpaces const& spaces) const {
    if (converted)
        return;
    model = spaces.modelRange(raw);
    membership.invalidate();
    converted = true;
}
