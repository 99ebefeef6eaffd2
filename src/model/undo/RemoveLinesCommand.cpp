#include "model/undo/RemoveLinesCommand.h"

#include "core/IndexUtilities.h"
#include "model/undo/ModelAxis.h"

#include <algorithm>

namespace {

std::vector<int> rawLinesFrom(TableModel& model, Axis axis, RangeSet const& cells, int count) {
    ModelAxis const lines(model, axis);
    std::vector<int> removed;
    for (int const start : lines.touchedLines(model.getModelRange(cells))) {
        int const from = removed.empty() ? start : std::max(start, removed.back() + 1);
        for (int line = from; line < std::min(start + count, lines.modelCount()); ++line)
            removed.push_back(line);
    }
    return lines.rawFromModel(removed);
}

TakenLines::Blocks blocksOf(TableModel& model, Axis axis, std::vector<int> rawLines) {
    Utilities::getOrderedSet(rawLines, rawLines);
    int const rawCount = ModelAxis(model, axis).rawCount();
    std::erase_if(rawLines, [rawCount](int line) { return line < 0 || line >= rawCount; });
    return Utilities::getBlockPairs(rawLines);
}

} // namespace

RemoveLinesCommand::RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count,
                                       bool changeSelection, QUndoCommand* parent)
    : RemoveLinesCommand(axis, model, cells, rawLinesFrom(*model, axis, cells, count), changeSelection, parent) {}

RemoveLinesCommand::RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells,
                                       std::vector<int> const& rawLines, bool changeSelection, QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), lines(axis, blocksOf(*model, axis, rawLines)) {
    setText(axis == Axis::Rows ? QStringLiteral("RemoveRowsCommand") : QStringLiteral("RemoveColsCommand"));
}

void RemoveLinesCommand::apply() {
    model->getTableData().take(lines);
    ModelAxis axis(*model, lines.getAxis());
    selectNewCells();
    if (changeSelection)
        axis.pullBackSelection();
    axis.fitAll();
}

void RemoveLinesCommand::revert() {
    model->getTableData().putBack(lines);
    // The grid takes its size first, for the selection can lie in what has come back.
    model->enforceTableSize();
    selectOldCells();
    ModelAxis(*model, lines.getAxis()).fitAll();
}
