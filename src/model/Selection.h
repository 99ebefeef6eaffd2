#pragma once

#include "core/Enumerations.h"
#include "core/RangeSize.h"
#include "core/RangeVector.h"
#include "model/RangeSet.h"
#include "model/SelectionShift.h"
#include "model/SelectionSize.h"

#include <QtGlobal>

#include <optional>
#include <vector>

/// What the owner of a selection has to announce after an operation.
struct SelectionChange {
    bool mainCell = false;         ///< the main cell may have moved
    bool ranges = false;           ///< the selected ranges may have changed
    bool size = false;             ///< the size to show has to be computed anew
    std::optional<bool> multiCell; ///< if set, whether the selection now counts as more than one cell
};

/// The selected ranges of a table, its main cell, the rectangle a drag is still drawing, and the record of steps made
/// with the Shift key: a plain value of the GUI thread, owned by the table's model. Every index is Model. After each
/// operation that sets or adds ranges the list is sanitized: sorted, without repetition, and holding the main cell. It
/// is kept as rectangles and runs of lines; only ranges() costs by the number of ranges.
class Selection {
public:
    // What is selected.

    /// With the main cell, if a range holds it.
    RangeSet const& set() const { return selection; }
    /// The list form, made when it is first asked for. Valid until the selection changes.
    RangeVector const& ranges() const;
    Range const& mainCell() const { return main; }
    /// Whether the cell is selected, exclusion lists regarded. Fast for many ranges.
    bool coversCell(int row, int col) const { return selection.covers(row, col); }
    /// Whether one selected range contains the given one, exclusion lists not regarded.
    bool cellInSelection(Range const& range) const { return selection.contains(range); }
    /// False only for a selection of exactly one Cell.
    bool isSelectionMultiCell() const { return !selection.isSingleCell(); }
    /// Whether a Row range of this row is selected, wherever it starts.
    bool isRowSelected(int row) const { return selection.hasLine(Axis::Rows, row); }
    bool isColSelected(int col) const { return selection.hasLine(Axis::Columns, col); }
    /// Cells in a view of that size, exclusion lists not regarded.
    qint64 numSelectedCells(GridSize view) const;
    /// The size to show for the selection. Leaves the ranges in order of row, then column.
    RangeSize getSelectionSize(GridSize view);

    // Housekeeping of the owner.

    /// Puts the list in order of columns, then rows.
    void sortByColumns();
    /// Restores the order of the list and its rules. Throws std::runtime_error without a main cell.
    void sanitizeSelection();
    /// Pulls Cells, Row (Axis::Rows) or Column ranges and the main cell back to line `last`. Returns whether any moved;
    /// then the list is sanitized.
    bool pullBackLines(Axis axis, int last);
    /// Removes Cells and Row (Axis::Rows) or Column ranges at or behind line `count`. Returns whether a range with the
    /// main cell is left.
    bool dropLinesFrom(Axis axis, int count);

    // Setting. All forms throw std::runtime_error when no main cell results.

    /// Selects exactly `range`, which gets its flag set. Its main cell offsets count from its start.
    SelectionChange setSelection(Range& range);
    /// Selects `ranges` with the main cell `mainRange`, added when no range holds it.
    SelectionChange setSelection(Range const& mainRange, RangeSet ranges);
    /// Selects `ranges`. The first one flagged decides the main cell, and its offsets are absolute lines, not counted
    /// from its start (see withAbsoluteMainCell); without one the main cell is (0, 0).
    SelectionChange setSelection(RangeVector const& ranges, bool resetShift);
    SelectionChange setMainCell(Range const& range);
    /// Empties the selection; `range` becomes the main cell unless its row or column is -1.
    SelectionChange clearSelection(Range const& range);
    /// `ranges` with the offsets of sanitized ranges turned into absolute lines.
    static RangeVector withAbsoluteMainCell(RangeVector ranges);

    // Adding and taking out.

    SelectionChange addCellToSelection(Range const& range);
    SelectionChange addCellsToSelection(RangeSet const& ranges);
    /// Takes a cell out of the first range that holds it, by erasing a Cell or by an exclusion. False if none holds it,
    /// it is out already, or it is the main cell's own Cell range.
    bool removeCellFromSelection(int row, int col);

    // Moving.

    /// Moves ranges and main cell, no further than the main cell stays in the view.
    SelectionChange moveSelectionRelative(int rows, int cols, GridSize view);
    /// Selects `ranges` moved by `rows`, and moves the main cell with them.
    SelectionChange moveSelectionVertically(RangeSet const& ranges, int rows);
    SelectionChange moveSelectionHorizontally(RangeSet const& ranges, int cols);

    // Growing with the Shift key. Without a value nothing happened and the operation's result is false.

    std::optional<SelectionChange> selectUpOrDown(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                  bool* changed, ShiftBounds const& rows);
    std::optional<SelectionChange> selectLeftOrRight(Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                                     bool* changed, ShiftBounds const& cols);
    /// Replays `steps` on each range of `base` and selects the result. The shift record stays.
    SelectionChange selectUpOrDown(RangeSet const& base, std::vector<SelectionType> const& steps,
                                   ShiftBounds const& rows);
    SelectionChange selectLeftOrRight(RangeSet const& base, std::vector<SelectionType> const& steps,
                                      ShiftBounds const& cols);
    SelectionShift const& shift() const { return shiftRecord; }
    void resetShiftSelectInfo() { shiftRecord.reset(); }

    // Inverting, within a table of `data` Model rows and columns. Cell (0, 0) is selected when nothing remains.

    SelectionChange invertSelectionByRowsHeaderExcluded(GridSize data, int numVisibleHeaderRows);
    SelectionChange invertSelectionByColumnsHeaderExcluded(GridSize data, int numHeaderCols);

    // The rectangle of a drag. A corner is unset while its row and column are -1.

    Range const& pendingCornerStart() const { return cornerStart; }
    Range const& pendingCornerEnd() const { return cornerEnd; }
    void setPendingCorners(Range const& start, Range const& end);
    /// Sets the first corner, which unsets the second, or the second. Returns the size to show, none when the second
    /// corner is there already. A new second corner is to be announced too.
    std::optional<RangeSize> setPendingSelectionCorner(Range const& corner, bool isFirst, GridSize view);

private:
    SelectionChange sanitizeAndReport();
    SelectionChange replaceBy(RangeSet ranges, Range mainRange);
    void forgetList();
    bool excludeFromRun(std::size_t index, int row, int col);
    std::optional<SelectionChange> shiftAlong(Axis axis, Direction direction, bool toBlockEdge, bool onlyTakeBack,
                                              bool* changed, ShiftBounds const& bounds);
    SelectionChange replayAlong(Axis axis, RangeSet const& base, std::vector<SelectionType> const& steps,
                                ShiftBounds const& bounds);
    SelectionChange invertAlong(Axis axis, GridSize data, int headerLines);
    SelectionChange moveAlong(RangeSet const& ranges, int rows, int cols);

    RangeSet selection;
    Range main{0, 0, RangeIndexType::Model};
    Range cornerStart{RangeType::None};
    Range cornerEnd{RangeType::None};
    SelectionShift shiftRecord;
    RangeSet::Order order = RangeSet::Order::ByRow;
    bool mainCellLast = false; ///< it was added to the list, which has not been sorted since
    mutable RangeVector list;
    mutable bool listed = false;
};
