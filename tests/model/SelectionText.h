#pragma once

#include "core/RangeVector.h"
#include "model/GridSize.h"
#include "model/RangeSet.h"
#include "model/SelectionMembership.h"

#include <set>
#include <sstream>
#include <string>
#include <utility>

// Selections as short texts: C1,2 is a Cell, R3,0 the Row 3 from column 0, K4,1 the Column 4 from row 1 and T0,0 a
// Table, each with row or line first; a star marks the range that holds the main cell.

inline RangeVector rangesFrom(std::string const& text) {
    static const std::string letters = "CRKT";
    RangeVector ranges;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        Range range(static_cast<RangeType>(letters.find(word[0])), RangeIndexType::Model);
        const int first = std::stoi(word.substr(1));
        const int second = std::stoi(word.substr(word.find(',') + 1));
        range.row = range.type == RangeType::Column ? second : first;
        range.col = range.type == RangeType::Column ? first : second;
        range.hasMainCell = word.back() == '*';
        ranges.push_back(range);
    }
    return ranges;
}

inline std::string textOf(RangeVector const& ranges) {
    std::string text;
    for (Range const& range : ranges) {
        const bool column = range.type == RangeType::Column;
        text += text.empty() ? "" : " ";
        text += std::string("CRKT?")[std::size_t(range.type)] + std::to_string(column ? range.col : range.row) + "," +
                std::to_string(column ? range.row : range.col) + (range.hasMainCell ? "*" : "");
    }
    return text;
}

inline std::string textOf(RangeSet const& ranges) {
    return textOf(ranges.ranges());
}

/// The cells that the ranges hold in a grid of that size.
inline std::set<std::pair<int, int>> cellsOf(RangeVector const& ranges, GridSize grid) {
    std::set<std::pair<int, int>> cells;
    for (int row = 0; row < grid.rows; ++row) {
        for (int col = 0; col < grid.cols; ++col) {
            for (Range const& range : ranges) {
                if (rangeCoversCell(range, row, col))
                    cells.emplace(row, col);
            }
        }
    }
    return cells;
}

inline Range modelCell(int row, int col) {
    return Range(row, col, RangeIndexType::Model);
}
