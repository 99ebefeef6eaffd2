#pragma once

#include <QMetaType>

/// How much is selected, as the status bar tells it.
struct RangeSize {
    int cells = 0;
    int rows = 0; ///< whole rows
    int cols = 0; ///< whole columns
    int height = 0;
    int width = 0;

    bool operator==(RangeSize const&) const = default;
};

Q_DECLARE_METATYPE(RangeSize)
