#include "model/undo/DuplicateLinesCommand.h"

#include "core/IndexUtilities.h"
#include "model/undo/ModelAxis.h"

#include <algorithm>

namespace {

using Runs = std::vector<std::pair<int, int>>;

/// The runs of lines in the data; the grid goes on behind it.
Runs runsOf(ModelAxis const& lines, RangeSet const& cells) {
    auto touched = lines.touchedLines(cells);
    std::erase_if(touched, [&](int line) { return line >= lines.modelCount(); });
    return Utilities::getBlockPairs(touched);
}

int length(std::pair<int, int> const& run) {
    return run.second - run.first + 1;
}

std::vector<LineInsertion::Place> placesBehind(Runs const& runs, int count) {
    std::vector<LineInsertion::Place> places;
    for (auto const& run : runs)
        places.push_back({run.second + 1, count * length(run)});
    return places;
}

} // namespace

DuplicateLinesCommand::DuplicateLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count,
                                             bool changeSelection, QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), axis(axis), count(count),
      runs(runsOf(ModelAxis(*model, axis), this->cells)), insertion(*model, axis, placesBehind(runs, count)) {
    setText(axis == Axis::Rows ? QStringLiteral("DuplicateRowsCommand") : QStringLiteral("DuplicateColsCommand"));
    selectCopies();
}

void DuplicateLinesCommand::selectCopies() {
    ModelAxis const names(*model, axis);
    RangeVector moved = cells.ranges();
    for (Range& range : moved) {
        int& line = range.*names.names().line;
        auto const run = std::lower_bound(runs.begin(), runs.end(), line,
                                          [](std::pair<int, int> const& run, int at) { return run.second < at; });
        if (names.isLineOrCell(range) && run != runs.end())
            line += insertion.computeNewLine(static_cast<std::size_t>(run - runs.begin())) - run->first;
    }
    setSelectionCells(moved, cells);
}

void DuplicateLinesCommand::apply() {
    insertion.insert();
    ModelAxis lines(*model, axis);
    for (std::size_t run = 0; run < runs.size(); ++run) {
        int const copies = insertion.computeNewLine(run);
        int const distance = length(runs[run]);
        for (int copy = copies; copy < copies + count * distance; ++copy)
            lines.duplicate(copy - distance, distance);
    }
    lines.fitAll();
    selectNewCells();
}

void DuplicateLinesCommand::revert() {
    insertion.remove();
    ModelAxis(*model, axis).fitAll();
    selectOldCells();
}
