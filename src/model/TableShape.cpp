#include "model/TableShape.h"

#include <algorithm>

int TableShape::viewCount(std::optional<int> lastSelected) const {
    if (readOnly)
        return modelCount;
    int const count = std::max(modelCount + buffer, minimum);
    return lastSelected ? std::max(count, buffer + *lastSelected + 1 - concealedCount) : count;
}

int TableShape::lastSelectable() const {
    int const last = std::max(viewCount(std::nullopt), 1) - 1;
    int const usedBuffer = readOnly ? 0 : buffer;
    return std::clamp(last - usedBuffer + concealedCount, 0, last);
}
