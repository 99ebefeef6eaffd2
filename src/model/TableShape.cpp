#include "model/TableShape.h"

#include <algorithm>

int TableShape::viewCount(std::optional<int> lastSelected) const {
    if (readOnly)
        return modelCount;
    int count = std::max(modelCount + buffer, minimum);
    if (lastSelected)
        count = std::max(count, buffer + *lastSelected + 1 - concealedCount);
    return std::max(std::min(count, most), modelCount);
}

int TableShape::lastSelectable() const {
    int const last = std::max(viewCount(std::nullopt), 1) - 1;
    int const usedBuffer = readOnly ? 0 : buffer;
    return std::clamp(last - usedBuffer + concealedCount, 0, last);
}
