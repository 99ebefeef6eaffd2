#pragma once

#include "model/undo/AlongAxis.h"
#include "model/undo/ContentCommand.h"
#include "storage/TableData.h"

#include <vector>

/// Moves rows or columns past others, all in one pass. What is concealed stays in place.
class MoveLinesCommand : public ContentCommand {
protected:
    MoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, bool changeSelection, QUndoCommand* parent)
        : ContentCommand(model, cells, changeSelection, parent), axis(axis) {}

    /// Sets where each line goes, and with that the selection. The first move tells the direction in which to scroll.
    void setMoves(TableData::LineMoves lineMoves);
    std::vector<int> startLines() const;

    void apply() override;
    void revert() override;

    Axis axis;

private:
    RangeSet movedCells() const;
    void scrollAlong(bool towardsStart, RangeSet const& ranges);

    TableData::LineMoves moves;
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
