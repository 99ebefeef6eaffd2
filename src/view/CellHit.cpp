#include "view/CellHit.h"

#include "view/ScrollAxis.h"

#include <algorithm>

int lineAtPos(ScrollAxis const& axis, int pixel) {
    int const last = axis.count() - 1;
    if (pixel >= axis.extent()) {
        int const next = axis.sectionAt(axis.extent()) + 1;
        return next < 1 ? last : std::min(next, last);
    }
    if (pixel < 0)
        return std::min(std::max(axis.sectionAt(0) - 1, 0), last);
    return axis.sectionAt(pixel);
}
