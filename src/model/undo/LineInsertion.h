#pragma once

#include "core/Enumerations.h"
#include "storage/TakenLines.h"

#include <vector>

class TableModel;

/// Empty rows or columns to be inserted at several places of a table in one pass, and to be removed from there again.
/// The grid grows or shrinks at its end, whatever the places.
class LineInsertion {
public:
    /// `count` lines in front of (Model) line `line`, as the lines are numbered before the insertion.
    struct Place {
        int line;
        int count;
    };

    /// The places are ascending.
    LineInsertion(TableModel& model, Axis axis, std::vector<Place> const& places);

    void insert();
    void remove();
    /// The (Model) line on which the lines inserted at a place begin.
    int computeNewLine(std::size_t place) const { return newLines[place]; }

private:
    static TakenLines::Blocks rawBlocks(TableModel& model, Axis axis, std::vector<Place> const& places);

    TableModel& model;
    std::vector<int> newLines;
    TakenLines lines;
};
