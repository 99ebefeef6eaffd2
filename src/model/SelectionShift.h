#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"

#include <functional>
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

/// Where a jump by a block of filled cells leads from a Model cell, as a Model cell.
using BlockJump = std::function<Range(Range const& from, Direction direction)>;

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
    SelectionType lastDirection() const { return lastShiftDirection; }

    /// `ranges` grown by `steps`: each range is there for every row (Axis::Rows: steps up and down) or column from
    /// where it stands to where the steps lead. A rectangle is one piece, for steps lead lines that follow one another
    /// to lines in the same order. The main cell stays.
    static RangeSet replay(RangeSet const& ranges, std::vector<SelectionType> const& steps, Axis axis,
                           ShiftBounds const& bounds);

private:
    RangeSet base;
    SelectionType lastShiftDirection = SelectionType::BlockUp;
    std::vector<SelectionType> shiftSteps;
};
