#pragma once

#include "core/RangeVector.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Whether a range holds a cell, both in the same index space: at its start, behind it in the range's row or column or
/// at its lower right, and in none of its exclusion lists. The ends of a range are not regarded.
bool rangeCoversCell(Range const& range, int row, int col);

/// Answers for a list of many ranges, such as a selection being painted, which cells they hold: single cells by hash,
/// rows by their row, columns by their column. A list of few ranges is simply walked. It must be invalidated whenever
/// the list is changed or sorted.
class SelectionMembership {
public:
    void invalidate() { built = false; }
    bool coversCell(RangeVector const& ranges, int row, int col);

private:
    void build(RangeVector const& ranges);

    bool built = false;
    std::unordered_set<std::uint64_t> cells;
    std::unordered_multimap<int, std::size_t> rows;
    std::unordered_multimap<int, std::size_t> cols;
    std::vector<std::size_t> tables;
};
