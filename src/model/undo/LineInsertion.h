#pragma once

#include "core/Enumerations.h"
#include "model/undo/LineGaps.h"
#include "storage/TakenLines.h"

#include <vector>

class TableModel;

/// Empty rows or columns to be inserted at several places of a table, and to be removed from there again.
class LineInsertion {
public:
    /// `count` lines in front of (Model) line `line`, as the lines are numbered before the insertion.
    struct Place {
        int line;
        int count;
    };

    /// The places are ascending.
    LineInsertion(TableModel& model, Axis axis, std::vector<Place> places);

    void insert();
    void remove();
    /// The (Model) line on which the lines inserted at a place begin.
    int computeNewLine(std::size_t place) const { return newLines[place]; }

private:
    TakenLines::Blocks rawBlocks() const;
    bool isFew() const;
    LineGaps gaps() const;

    TableModel& model;
    Axis axis;
    std::vector<Place> places;
    std::vector<int> newLines;
    TakenLines lines;
};
