#pragma once

#include "core/RangeVector.h"
#include "model/IndexSpaces.h"
#include "model/SelectionMembership.h"

/// The ranges that a search highlights. They are kept in Raw index, so that concealing rows moves no highlight, and
/// answered for in Model index, for which a converted copy is made when it is first asked for.
class HighlightedCells {
public:
    bool isEmpty() const { return raw.empty(); }
    RangeVector const& rawRanges() const { return raw; }
    /// Replaces the list.
    void set(RangeVector rawRanges);
    /// Has to follow every change of how raw and model indexes belong together.
    void invalidate() { converted = false; }

    /// Whether a Model cell lies in a highlighted range.
    bool covers(int row, int col, IndexSpaces const& spaces) const;
    /// The first range that starts at a Model cell, whatever its type; null if there is none.
    Range const* startingAt(int row, int col, IndexSpaces const& spaces) const;

private:
    void convert(IndexSpaces const& spaces) const;

    RangeVector raw;
    mutable RangeVector model;
    mutable SelectionMembership membership;
    mutable bool converted = false;
};
