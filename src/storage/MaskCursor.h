#pragma once

#include <vector>

/// Walks a sorted mask in step with ascending indexes.
class MaskCursor {
public:
    /// Without a mask nothing is contained. The mask must outlive the cursor.
    explicit MaskCursor(std::vector<int> const* mask)
        : next(mask ? mask->data() : nullptr), end(mask ? mask->data() + mask->size() : nullptr) {}

    /// Whether the mask lists `index`, which may not be below that of the call before.
    bool contains(int index) {
        while (next != end && *next < index)
            ++next;
        return next != end && *next == index;
    }

private:
    int const* next;
    int const* end;
};
