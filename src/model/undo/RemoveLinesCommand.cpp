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

LineGaps::Runs visibleRuns(TableModel& model, Axis axis, TakenLines::Blocks const& blocks) {
    ModelAxis const lines(model, axis);
    LineGaps::Runs runs;
    for (auto const& [first, last] : blocks) {
        int const begin = lines.visibleInFront(first);
        int const end = lines.visibleInFront(last + 1);
        if (begin < end)
            runs.emplace_back(begin, end - 1);
    }
    return runs;
}

} // namespace

RemoveLinesCommand::RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells, int count,
                                       bool changeSelection, QUndoCommand* parent)
    : RemoveLinesCommand(axis, model, cells, rawLinesFrom(*model, axis, cells, count), changeSelection, parent) {}

RemoveLinesCommand::RemoveLinesCommand(Axis axis, TableModel* model, RangeSet const& cells,
                                       std::vector<int> const& rawLines, bool changeSelection, QUndoCommand* parent)
    : ContentCommand(model, cells, changeSelection, parent), lines(axis, blocksOf(*model, axis, rawLines)),
      visible(visibleRuns(*model, axis, lines.getBlocks())) {
    setText(axis == Axis::Rows ? QStringLiteral("RemoveRowsCommand") : QStringLiteral("RemoveColsCommand"));
}

void RemoveLinesCommand::apply() {
    model->getTableData().take(lines);
    LineMove gone{lines.getAxis(), [this](int line) { return visible.without(line); }, &sizes};
    model->moveSizes(gone);
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
    LineMove back{lines.getAxis(), [this](int line) { return visible.with(line); }, &sizes};
    model->moveSizes(back);
    selectOldCells();
    ModelAxis(*model, lines.getAxis()).fitAll();
}
