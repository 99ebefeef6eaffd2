#include "model/SelectionInversion.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

/// A range that reaches through many lines, with its exclusions in order for look-ups.
struct ThroughRange {
    Range const* range;
    std::vector<int> excludedLines;
    std::vector<std::pair<int, int>> excludedCells; ///< (line, position)

    bool isWhole() const {
        return excludedLines.empty() && excludedCells.empty() && range->excludedRows.empty() &&
               range->excludedCols.empty();
    }
};

/// Works out, line by line, which positions a selection holds.
class LineCoverage {
public:
    LineCoverage(RangeVector const& ranges, RangeAxis const& lineAxis, int positionCount)
        : axis(lineAxis), covered(std::size_t(positionCount)), ofOneRange(std::size_t(positionCount)) {
        for (Range const& range : ranges) {
            if (range.type == RangeType::Cell || range.type == axis.lineType)
                ownRanges.push_back(&range);
            else if (range.type != RangeType::None)
                throughRanges.push_back(makeThrough(range));
        }
        std::stable_sort(ownRanges.begin(), ownRanges.end(),
                         [&](Range const* a, Range const* b) { return a->*axis.line < b->*axis.line; });
    }

    /// Whether all lines from `line` on are covered at the same positions, and at least one.
    bool isSameFrom(int line) const {
        return ownRanges.empty() && !throughRanges.empty() &&
               std::all_of(throughRanges.begin(), throughRanges.end(), [&](ThroughRange const& through) {
                   return through.isWhole() && through.range->*axis.line <= line;
               });
    }

    /// One flag for each position of the line, good until the next call; null for a line without selected cells. Must
    /// be called with ascending lines.
    std::vector<char> const* positions(int line) {
        while (nextOwn < ownRanges.size() && ownRanges[nextOwn]->*axis.line < line)
            ++nextOwn;
        const bool hasOwn = nextOwn < ownRanges.size() && ownRanges[nextOwn]->*axis.line == line;
        if (!hasOwn && throughRanges.empty())
            return nullptr;
        std::fill(covered.begin(), covered.end(), char(false));
        for (std::size_t i = nextOwn; i < ownRanges.size() && ownRanges[i]->*axis.line == line; ++i)
            coverOwn(*ownRanges[i]);
        for (ThroughRange const& through : throughRanges)
            coverThrough(through, line);
        const bool any = std::find(covered.begin(), covered.end(), char(true)) != covered.end();
        return any ? &covered : nullptr;
    }

private:
    ThroughRange makeThrough(Range const& range) const {
        ThroughRange through{&range, range.*axis.excludedLines, {}};
        for (auto const& cell : range.excludedCells)
            through.excludedCells.emplace_back(cell.*axis.cellLine, cell.*axis.cellPosition);
        std::sort(through.excludedLines.begin(), through.excludedLines.end());
        std::sort(through.excludedCells.begin(), through.excludedCells.end());
        return through;
    }

    void coverOwn(Range const& range) {
        if (range.type == RangeType::Cell)
            set(covered, range.*axis.position, true);
        else
            coverFrom(range, range.excludedCells.end(), range.excludedCells.end());
    }

    void coverThrough(ThroughRange const& through, int line) {
        Range const& range = *through.range;
        if (line < range.*axis.line ||
            std::binary_search(through.excludedLines.begin(), through.excludedLines.end(), line))
            return;
        if (range.type == axis.crossType) {
            set(covered, range.*axis.position, true);
            return;
        }
        const auto from =
            std::lower_bound(through.excludedCells.begin(), through.excludedCells.end(), std::pair(line, INT_MIN));
        const auto to = std::upper_bound(from, through.excludedCells.end(), std::pair(line, INT_MAX));
        coverFrom(range, from, to);
    }

    /// Covers from the range's position to the end of the line, but for its excluded positions and those of `cells`.
    template <typename CellIterator>
    void coverFrom(Range const& range, CellIterator cells, CellIterator cellsEnd) {
        const std::size_t start = std::min(std::size_t(std::max(range.*axis.position, 0)), covered.size());
        std::fill(ofOneRange.begin(), ofOneRange.end(), char(false));
        std::fill(ofOneRange.begin() + std::ptrdiff_t(start), ofOneRange.end(), char(true));
        for (int position : range.*axis.excludedPositions)
            set(ofOneRange, position, false);
        for (; cells != cellsEnd; ++cells)
            set(ofOneRange, cells->second, false);
        for (std::size_t i = start; i < covered.size(); ++i)
            covered[i] = char(covered[i] | ofOneRange[i]);
    }

    static void set(std::vector<char>& flags, int position, bool value) {
        if (position >= 0 && std::size_t(position) < flags.size())
            flags[std::size_t(position)] = char(value);
    }

    RangeAxis const& axis;
    std::vector<Range const*> ownRanges; ///< Cells and whole lines, in order of lines
    std::vector<ThroughRange> throughRanges;
    std::size_t nextOwn = 0;
    std::vector<char> covered;
    std::vector<char> ofOneRange;
};

void addRange(RangeVector& ranges, RangeType type, Range const& start) {
    ranges.push_back(start);
    ranges.back().type = type;
}

/// Flags the first range with its start as the main cell.
void flagFirst(RangeVector& ranges) {
    if (ranges.empty())
        return;
    Range& first = ranges.front();
    first.hasMainCell = true;
    if (first.type == RangeType::Row)
        first.mainIndex = first.col;
    else if (first.type == RangeType::Column)
        first.mainIndex = first.row;
}

} // namespace

RangeVector invertRanges(RangeVector const& ranges, Axis axis, GridSize data, int firstLine) {
    RangeAxis const& names = rangeAxis(axis);
    const int lineCount = data.*names.lineCount;
    const int positionCount = std::max(data.*names.positionCount, 0);
    LineCoverage coverage(ranges, names, positionCount);
    // Ranges across the lines keep a whole column, seen by rows, from falling into a cell for each row.
    const bool across = coverage.isSameFrom(firstLine);
    const int lastLine = across ? std::min(firstLine, lineCount - 1) : lineCount - 1;

    RangeVector left;
    for (int line = firstLine; line <= lastLine; ++line) {
        std::vector<char> const* covered = coverage.positions(line);
        if (!covered) {
            addRange(left, names.lineType, names.cell(line, 0));
            continue;
        }
        for (int position = 0; position < positionCount; ++position) {
            if (!(*covered)[std::size_t(position)])
                addRange(left, across ? names.crossType : RangeType::Cell, names.cell(line, position));
        }
    }
    flagFirst(left);
    return left;
}
