#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"

#include <functional>
#include <map>
#include <tuple>
#include <vector>

/// One step of growing the selection with the Shift key.
enum class SelectionType {
    OneUp = 0,
    OneDown = 1,
    OneLeft = 2,
    OneRight = 3,
    BlockUp = 4,
    BlockDown = 5,
    BlockLeft = 6,
    BlockRight = 7,
};

Direction directionOf(SelectionType step);
bool isBlockStep(SelectionType step);
/// Whether a direction leads from one line of the axis to another.
bool isAlong(Direction direction, Axis axis);

/// The line, which is a column for Left and Right, that a jump by a block of filled cells leads to from a Model cell.
using BlockJump = std::function<int(int row, int col, Direction direction)>;

/// How far a replay may go: the number of rows or columns the view shows, and the jump for block steps.
struct ShiftBounds {
    int lineCount = 0;
    BlockJump nextBlock;
};

/// The record of a selection that grows step by step from the one it began with, so that a step back takes away exactly
/// what the step out added.
class SelectionShift {
public:
    /// Forgets base and steps; the next step begins anew.
    void reset();

    /// Notes a step in `direction`, starting from `selection` when the last step lay on the other axis. A step against
    /// the last one takes that back and sets `tookBack` (which may be null). Returns false, with nothing noted, when
    /// `onlyTakeBack` is set, the direction is Up or Left, and there is no step to take back.
    bool addStep(RangeSet const& selection, Direction direction, bool toBlockEdge, bool onlyTakeBack, bool* tookBack);

    RangeSet const& baseSelection() const { return base; }
    std::vector<SelectionType> const& steps() const { return shiftSteps; }

    /// `bounds` with the last long jumps of this growth known, for each step is made anew from the base and a jump can
    /// have to look at a million cells. Needs both.
    ShiftBounds remembering(ShiftBounds const& bounds);

private:
    RangeSet base;
    SelectionType lastShiftDirection = SelectionType::BlockUp;
    std::vector<SelectionType> shiftSteps;
    std::map<std::tuple<int, int, Direction>, int> jumps; ///< lines by row, column and direction
};
