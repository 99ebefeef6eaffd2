#pragma once

#include "core/Enumerations.h"

#include <vector>

class TableModel;

/// Works out which rows or columns of a table are to be hidden from now on. All lists are raw and ascending.
class HiddenLines {
public:
    using Indexes = std::vector<int>;

    HiddenLines(TableModel const& model, Axis axis) : model(model), axis(axis) {}

    /// What is hidden now.
    Indexes const& present() const;

    // Present lists with a change, all of them on lines of the data.

    Indexes withSelected() const;
    Indexes withAllButSelected() const;
    Indexes withEmpty() const;
    Indexes withoutEmpty() const;
    /// Shows what lies between selected neighbours, and what lies before the first or behind the last line of the data
    /// if that is selected.
    Indexes withoutThoseInSelection() const;

private:
    Indexes selectedModelLines() const;
    Indexes emptyLines() const;
    int modelCount() const;
    int rawCount() const;
    int rawFromModel(int line) const;

    TableModel const& model;
    Axis axis;
};
