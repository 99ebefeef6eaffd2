#pragma once

#include "core/Enumerations.h"

#include <QMetaType>

/// By what a table is sorted: for Axis::Rows the raw column, for Axis::Columns the raw row, that holds the keys.
struct SortData {
    SortType sortType = SortType::None;
    Axis axis = Axis::Undecided;
    int index = -1;

    bool operator==(SortData const&) const = default;
};

Q_DECLARE_METATYPE(SortData)
