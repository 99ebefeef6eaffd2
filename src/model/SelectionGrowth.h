#pragma once

#include "core/Enumerations.h"
#include "model/RangeSet.h"
#include "model/SelectionShift.h"

#include <utility>
#include <vector>

/// Ranges that grow by steps of the Shift key: each is there for every line, which is a row along Axis::Rows (steps up
/// and down) and a column otherwise, from where it stands to where the steps lead. A rectangle is one piece, for steps
/// lead lines that follow one another to lines in the same order. The rules of a list of ranges hold: where a cell
/// grows over the start of a whole row or column, or that over a cell, the one that started in front is first.
class SelectionGrowth {
public:
    /// All have to outlive the growth.
    SelectionGrowth(RangeSet const& ranges, std::vector<SelectionType> const& steps, Axis axis,
                    ShiftBounds const& bounds);

    /// The main cell is where it was.
    RangeSet result() const;

private:
    CellRegion grownCells() const;
    void addGrown(std::vector<CellRect>& pieces, CellRect const& cells) const;
    CellRegion cellsBehindLines() const;
    CellRegion firstStarted(CellRegion const& starts, CellRegion const& cells, int position) const;
    std::vector<LineRun const*> inListOrder() const;
    void growLines(LineRun const& run, RangeSet& out) const;
    void growAcross(LineRun const& run, RangeSet& out) const;
    void growTo(std::pair<int, int> lines, LineRun const& run, RangeSet& out) const;

    int lineAfter(int line, int position) const;
    std::pair<int, int> reach(int first, int last, int position) const;
    template <class Take>
    void visitReaches(int first, int last, int from, int to, Take take) const;
    CellRect rect(int first, int last, int from, int to) const;
    CellRegion cellsAt(int position) const;
    std::vector<std::pair<int, int>> linesOf(CellRegion const& atOnePosition) const;

    RangeSet const& ranges;
    std::vector<SelectionType> const& steps;
    Axis axis;
    ShiftBounds const& bounds;
};
