#include "model/SelectionShift.h"

#include "model/RangeAxis.h"

#include <algorithm>

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

/// The line that the steps lead to from a range.
int lineAfter(Range const& range, std::vector<SelectionType> const& steps, Axis axis, ShiftBounds const& bounds) {
    RangeAxis const& names = rangeAxis(axis);
    const int last = std::max(bounds.lineCount - 1, 0);
    int line = range.*names.line;
    for (SelectionType step : steps) {
        const Direction direction = directionOf(step);
        if (!isAlong(direction, axis))
            continue;
        if (isBlockStep(step)) {
            const Range from = names.cell(std::clamp(line, 0, last), range.*names.position);
            line = bounds.nextBlock(from, direction).*names.line;
        } else {
            line += direction == Direction::Down || direction == Direction::Right ? 1 : -1;
        }
    }
    return std::clamp(line, 0, last);
}

} // namespace

void SelectionShift::reset() {
    base = RangeVector();
    lastShiftDirection = SelectionType::BlockUp;
    shiftSteps.clear();
}

bool SelectionShift::addStep(RangeVector const& selection, Direction direction, bool toBlockEdge, bool onlyTakeBack,
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

RangeVector SelectionShift::replay(RangeVector const& ranges, std::vector<SelectionType> const& steps, Axis axis,
                                   ShiftBounds const& bounds) {
    RangeAxis const& names = rangeAxis(axis);
    RangeVector grown;
    grown.tableRows = ranges.tableRows;
    grown.tableCols = ranges.tableCols;
    for (Range const& range : ranges) {
        const int start = range.*names.line;
        const int end = lineAfter(range, steps, axis, bounds);
        // The range itself comes first: the first flagged one decides the main cell.
        for (int line = start;; line += end < start ? -1 : 1) {
            grown.push_back(range);
            grown.back().*names.line = line;
            if (line == end)
                break;
        }
    }
    return grown;
}
