#include "model/undo/InsertLinesCommand.h"

#include "model/undo/ModelAxis.h"

#include <algorithm>

namespace {

std::vector<LineInsertion::Place> placesAt(std::vector<int> const& lines, int count, bool before) {
    std::vector<LineInsertion::Place> places;
    for (int const line : lines)
        places.push_back({before ? line : line + 1, count});
    return places;
}

} // namespace

InsertLinesCommand::InsertLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count, bool before,
                                       bool changeSelection, QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), axis(axis),
      lines(ModelAxis(*model, axis).touchedLines(this->cells)),
      insertion(*model, axis, placesAt(lines, count, before)) {
    setText(axis == Axis::Rows ? QStringLiteral("InsertRowsCommand") : QStringLiteral("InsertColsCommand"));
    ModelAxis const names(*model, axis);
    RangeVector moved = this->cells.ranges();
    for (Range& range : moved) {
        if (!names.isLineOrCell(range))
            continue;
        int& line = range.*names.names().line;
        auto const place = std::lower_bound(lines.begin(), lines.end(), line) - lines.begin();
        line = insertion.computeNewLine(static_cast<std::size_t>(place));
    }
    setSelectionCells(moved, this->cells);
}

void InsertLinesCommand::apply() {
    insertion.insert();
    ModelAxis(*model, axis).fitAll();
    selectNewCells();
}

void InsertLinesCommand::revert() {
    insertion.remove();
    ModelAxis(*model, axis).fitAll();
    selectOldCells();
}
