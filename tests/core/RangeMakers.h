#pragma once

#include "core/RangeVector.h"

#include <tuple>

// Model ranges in few characters, for tables of cases.

inline constexpr auto Model = RangeIndexType::Model;

inline Range cell(int row, int col) {
    return {row, col, Model};
}

inline Range row(int index) {
    return {index, RangeType::Row, Model};
}

inline Range column(int index) {
    return {index, RangeType::Column, Model};
}

inline Range block(RangeType type, int row, int col, int rowEnd = INT_MAX, int colEnd = INT_MAX) {
    Range range(type, Model);
    std::tie(range.row, range.col, range.rowEnd, range.colEnd) = std::tuple(row, col, rowEnd, colEnd);
    return range;
}

inline Range table(int row = 0, int col = 0, int rowEnd = INT_MAX, int colEnd = INT_MAX) {
    return block(RangeType::Table, row, col, rowEnd, colEnd);
}
