#include "model/undo/MoveLinesCommand.h"

#include "model/undo/ModelAxis.h"

#include <algorithm>
#include <utility>

/// Those in the data; the grid goes on behind it, but there is nothing to move there.
std::vector<int> MoveLinesCommand::startLines() const {
    ModelAxis const lines(*model, axis);
    std::vector<int> starts = lines.startLines(cells);
    std::erase_if(starts, [&](int line) { return line >= lines.modelCount(); });
    return starts;
}

void MoveLinesCommand::setSteps(std::vector<Step> moves) {
    steps = std::move(moves);
    setSelectionCells(movedCells(), cells);
}

RangeVector MoveLinesCommand::movedCells() const {
    std::vector<Step> sorted = steps;
    std::sort(sorted.begin(), sorted.end(), [](Step const& a, Step const& b) { return a.line < b.line; });
    ModelAxis const names(*model, axis);
    RangeVector moved = cells.ranges();
    for (Range& range : moved) {
        int& line = range.*names.names().line;
        auto const step =
            std::lower_bound(sorted.begin(), sorted.end(), line, [](Step const& a, int at) { return a.line < at; });
        if (names.isLineOrCell(range) && step != sorted.end() && step->line == line)
            line += step->offset;
    }
    return moved;
}

void MoveLinesCommand::apply() {
    ModelAxis lines(*model, axis);
    for (Step const& step : steps)
        lines.move(step.line, step.offset);
    selectNewCells();
    scrollAlong(!steps.empty() && steps.front().offset < 0, movedCells());
}

void MoveLinesCommand::revert() {
    ModelAxis lines(*model, axis);
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        lines.move(step->line + step->offset, -step->offset);
    selectOldCells();
    scrollAlong(!steps.empty() && steps.front().offset > 0, cells);
}

/// Shows the line that leads the move.
void MoveLinesCommand::scrollAlong(bool towardsStart, RangeSet const& ranges) {
    ModelAxis lines(*model, axis);
    auto const starts = lines.startLines(ranges);
    if (!starts.empty())
        lines.scrollTo(towardsStart ? starts.front() : starts.back());
}

MoveLinesRelativeCommand::MoveLinesRelativeCommand(Axis axis, TableModel* model, RangeSet const& cells, int delta,
                                                   bool changeSelection, QUndoCommand* parent)
    : MoveLinesCommand(axis, model, cells, changeSelection, parent) {
    setText(axis == Axis::Rows ? QStringLiteral("MoveRowsRelativeCommand") : QStringLiteral("MoveColsRelativeCommand"));
    std::vector<int> lines = startLines();
    if (!lines.empty())
        delta = std::max(delta, -lines.front());
    // The line that leads goes first, so that no line jumps over another moved one.
    if (delta > 0)
        std::reverse(lines.begin(), lines.end());
    std::vector<Step> moves;
    for (int const line : lines)
        moves.push_back({line, delta});
    setSteps(std::move(moves));
}

MoveLinesAbsoluteCommand::MoveLinesAbsoluteCommand(Axis axis, TableModel* model, RangeSet const& cells, int to,
                                                   bool changeSelection, QUndoCommand* parent)
    : MoveLinesCommand(axis, model, cells, changeSelection, parent) {
    setText(axis == Axis::Rows ? QStringLiteral("MoveRowsAbsoluteCommand") : QStringLiteral("MoveColsAbsoluteCommand"));
    std::vector<int> const lines = startLines();
    auto const behind = std::lower_bound(lines.begin(), lines.end(), to);
    std::vector<Step> moves;
    int target = to;
    for (auto line = behind; line != lines.begin();) {
        --line;
        moves.push_back({*line, --target - *line});
    }
    target = to;
    for (auto line = behind; line != lines.end(); ++line)
        moves.push_back({*line, target++ - *line});
    setSteps(std::move(moves));
}
