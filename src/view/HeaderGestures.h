#pragma once

#include "core/Enumerations.h"
#include "core/SortData.h"
#include "model/RangeSet.h"

#include <array>

class TableModel;

/// What presses and drags on the labels of rows and columns do to the selection. Along Axis::Rows a line is a row. A
/// plain value that remembers the running drag; the sections are Model, -1 for a place without one.
class HeaderGestures {
public:
    enum class ShiftPress {
        Nothing,
        Extend,      ///< the selected lines now reach to the section
        DragSections ///< the selection is as it was; a drag of the selected lines begins
    };

    /// Selects the line alone, with its first cell as main cell.
    void press(TableModel& model, Axis axis, int section);
    void ctrlPress(TableModel& model, Axis axis, int section);
    ShiftPress shiftPress(TableModel& model, Axis axis, int section);
    /// A selected line stays selected with all others.
    void rightPress(TableModel& model, Axis axis, int section);
    /// Selects from the pressed line to this one, beside what was selected at the press. False if no drag is running.
    bool enter(TableModel& model, Axis axis, int section);
    void release(Axis axis);

    /// Where the running drag began, -1 for none.
    int anchor(Axis axis) const { return anchors[std::size_t(axis)]; }
    /// How the table is to be sorted by that line: the other way round than it is sorted by it now, else ascending.
    static SortData nextSort(TableModel const& model, Axis axis, int section);

private:
    int& anchorOf(Axis axis) { return anchors[std::size_t(axis)]; }

    std::array<int, 2> anchors{-1, -1}; ///< by axis
    RangeSet base;                      ///< what was selected at the press, with its main cell
};
