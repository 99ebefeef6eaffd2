#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"

#include <vector>

/// Moves rows or columns, one after the other, past others. What is concealed stays in place.
class MoveLinesCommand : public ContentCommand {
protected:
    /// A line and by how much it moves.
    struct Step {
        int line;
        int offset;
    };

    MoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, bool changeSelection, QUndoCommand* parent)
        : ContentCommand(model, cells, changeSelection, parent), axis(axis) {}

    /// Sets the moves, to be made in this order, and with them the selection. No step may disturb the place of a line
    /// that has a later one.
    void setSteps(std::vector<Step> moves);
    std::vector<int> startLines() const;

    void apply() override;
    void revert() override;

    Axis axis;

private:
    RangeVector movedCells() const;
    void scrollAlong(bool towardsStart, RangeSet const& ranges);

    std::vector<Step> steps;
};

/// Moves the rows or columns on which cells start by `delta`, no further than to the start of the table.
class MoveLinesRelativeCommand : public MoveLinesCommand {
public:
    MoveLinesRelativeCommand(Axis axis, TableModel* model, RangeSet const& cells, int delta, bool changeSelection,
                             QUndoCommand* parent = nullptr);
};

/// Brings the rows or columns on which cells start together in front of another line.
class MoveLinesAbsoluteCommand : public MoveLinesCommand {
public:
    /// `to` is the (Model) line that stands behind them afterwards.
    MoveLinesAbsoluteCommand(Axis axis, TableModel* model, RangeSet const& cells, int to, bool changeSelection,
                             QUndoCommand* parent = nullptr);
};

using MoveRowsRelativeCommand = AlongAxis<MoveLinesRelativeCommand, Axis::Rows>;
using MoveColsRelativeCommand = AlongAxis<MoveLinesRelativeCommand, Axis::Columns>;
using MoveRowsAbsoluteCommand = AlongAxis<MoveLinesAbsoluteCommand, Axis::Rows>;
using MoveColsAbsoluteCommand = AlongAxis<MoveLinesAbsoluteCommand, Axis::Columns>;
