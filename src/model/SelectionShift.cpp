#include "model/SelectionShift.h"

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

} // namespace

Direction directionOf(SelectionType step) {
    return static_cast<Direction>(static_cast<int>(step) % firstBlockStep);
}

bool isBlockStep(SelectionType step) {
    return static_cast<int>(step) >= firstBlockStep;
}

bool isAlong(Direction direction, Axis axis) {
    return (direction == Direction::Up || direction == Direction::Down) == (axis == Axis::Rows);
}

void SelectionShift::reset() {
    base = RangeSet();
    jumps.clear();
    lastShiftDirection = SelectionType::BlockUp;
    shiftSteps.clear();
}

bool SelectionShift::addStep(RangeSet const& selection, Direction direction, bool toBlockEdge, bool onlyTakeBack,
                             bool* tookBack) {
    const SelectionType singleStep = stepTowards(direction, false);
    if (lastShiftDirection != singleStep && lastShiftDirection != opposite(singleStep)) {
        base = selection;
        shiftSteps.clear();
        jumps.clear();
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

ShiftBounds SelectionShift::remembering(ShiftBounds const& bounds) {
    return {bounds.lineCount, [this, &bounds](int row, int col, Direction direction) {
                // Many jumps are those of many lines, each of which is short.
                constexpr std::size_t most = 256;
                const auto [jump, isNew] = jumps.try_emplace({row, col, direction}, 0);
                if (isNew)
                    jump->second = bounds.nextBlock(row, col, direction);
                const int line = jump->second;
                if (jumps.size() > most)
                    jumps.clear();
                return line;
            }};
}
