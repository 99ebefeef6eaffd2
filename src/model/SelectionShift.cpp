#include "model/SelectionShift.h"

#include "model/RangeAxis.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

// Single steps have the numbers of the directions, block steps follow them in the same order, and the two steps of an
// axis differ in the lowest bit.
constexpr int firstBlockStep = static_cast<int>(SelectionType::BlockUp);

SelectionType stepTowards(Direction direction, bool toBlockEdge) {
    return static_cast<SelectionType>(static_cast<int>(direction) + (toBlockEdge ? firstBlockStep : 0));
}

SelectionType opposite(SelectionType step) {
    return static_cast<SelectionType>(static_cast<int>(step) ^ 1);
}

Direction directionOf(SelectionType step) {
    return static_cast<Direction>(static_cast<int>(step) % firstBlockStep);
}

bool isBlockStep(SelectionType step) {
    return static_cast<int>(step) >= firstBlockStep;
}

bool isAlong(Direction direction, Axis axis) {
    return (direction == Direction::Up || direction == Direction::Down) == (axis == Axis::Rows);
}

/// The line that the steps lead to from a line, seen at one position in it.
int lineAfter(int line, int position, std::vector<SelectionType> const& steps, Axis axis, ShiftBounds const& bounds) {
    RangeAxis const& names = rangeAxis(axis);
    const int last = std::max(bounds.lineCount - 1, 0);
    for (SelectionType step : steps) {
        const Direction direction = directionOf(step);
        if (!isAlong(direction, axis))
            continue;
        if (isBlockStep(step)) {
            const Range from = names.cell(std::clamp(line, 0, last), position);
            line = bounds.nextBlock(from, direction).*names.line;
        } else {
            line += direction == Direction::Down || direction == Direction::Right ? 1 : -1;
        }
    }
    return std::clamp(line, 0, last);
}

/// The lines that a run of lines grows to.
std::pair<int, int> grownLines(int first, int last, int position, std::vector<SelectionType> const& steps, Axis axis,
                               ShiftBounds const& bounds) {
    return {std::min(first, lineAfter(first, position, steps, axis, bounds)),
            std::max(last, lineAfter(last, position, steps, axis, bounds))};
}

} // namespace

void SelectionShift::reset() {
    base = RangeSet();
    lastShiftDirection = SelectionType::BlockUp;
    shiftSteps.clear();
}

bool SelectionShift::addStep(RangeSet const& selection, Direction direction, bool toBlockEdge, bool onlyTakeBack,
                             bool* tookBack) {
    const SelectionType singleStep = stepTowards(direction, false);
    if (lastShiftDirection != singleStep && lastShiftDirection != opposite(singleStep)) {
        base = selection;
        shiftSteps.clear();
    }
    lastShiftDirection = singleStep;

    const SelectionType step = stepTowards(direction, toBlockEdge);
    if (!shiftSteps.empty() && shiftSteps.back() == opposite(step)) {
        shiftSteps.pop_back();
        if (tookBack)
            *tookBack = true;
        return true;
    }
    if (onlyTakeBack && (direction == Direction::Up || direction == Direction::Left))
        return false;
    shiftSteps.push_back(step);
    return true;
}

RangeSet SelectionShift::replay(RangeSet const& ranges, std::vector<SelectionType> const& steps, Axis axis,
                                ShiftBounds const& bounds) {
    const bool rows = axis == Axis::Rows;
    const bool jumps = std::any_of(steps.begin(), steps.end(), isBlockStep);
    std::vector<CellRect> grown;
    for (CellRect const& rect : ranges.cells().rects()) {
        const auto grow = [&](int first, int last, int position, int lastPosition) {
            std::tie(first, last) = grownLines(first, last, position, steps, axis, bounds);
            grown.push_back(rows ? CellRect{first, position, last, lastPosition}
                                 : CellRect{position, first, lastPosition, last});
        };
        const auto [first, last] = rows ? std::pair(rect.top, rect.bottom) : std::pair(rect.left, rect.right);
        const auto [from, to] = rows ? std::pair(rect.left, rect.right) : std::pair(rect.top, rect.bottom);
        // Only a jump goes by what the cells at one position hold.
        if (!jumps)
            grow(first, last, from, to);
        for (int position = from; jumps && position <= to; ++position)
            grow(first, last, position, position);
    }
    RangeSet result(CellRegion::ofRects(grown));
    for (LineRun const& run : ranges.lines()) {
        if (run.range.type == rangeAxis(axis).lineType) {
            const auto [first, last] = grownLines(run.firstLine(), run.lastLine(), run.position(), steps, axis, bounds);
            for (int line = first; line <= last; ++line)
                result.addLines(run.part(line, line));
            continue;
        }
        // A range across the lines starts on every line between.
        Range const& range = run.range;
        const int start = range.*rangeAxis(axis).line;
        const int end = lineAfter(start, range.*rangeAxis(axis).position, steps, axis, bounds);
        for (int line = start;; line += end < start ? -1 : 1) {
            LineRun copy = run;
            copy.range.*rangeAxis(axis).line = line;
            result.addLines(copy);
            if (line == end)
                break;
        }
    }
    if (ranges.mainCell())
        result.setMainCell(ranges.mainCell()->first, ranges.mainCell()->second);
    return result;
}
