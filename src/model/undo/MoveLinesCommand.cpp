#include "model/undo/MoveLinesCommand.h"

#include "model/undo/ModelAxis.h"

#include <algorithm>
#include <utility>

namespace {

/// By how much lines move, as runs of neighbours that move alike.
class LineShifts {
public:
    explicit LineShifts(TableData::LineMoves moves) {
        std::sort(moves.begin(), moves.end());
        for (auto const& [from, to] : moves) {
            if (!shifts.empty() && shifts.back().last + 1 == from && shifts.back().by == to - from)
                shifts.back().last = from;
            else
                shifts.push_back({from, from, to - from});
        }
    }

    /// Calls `take(first, last, by)` for lines from `first` to `last`, in order; those that do not move, by 0.
    template <class Take>
    void visit(int first, int last, Take take) const {
        auto shift = std::lower_bound(shifts.begin(), shifts.end(), first,
                                      [](Shift const& a, int line) { return a.last < line; });
        while (first <= last) {
            bool const before = shift == shifts.end() || first < shift->first;
            int const end = before ? (shift == shifts.end() ? last : std::min(last, shift->first - 1))
                                   : std::min(last, shift->last);
            take(first, end, before ? 0 : shift->by);
            if (end == last)
                return;
            if (!before)
                ++shift;
            first = end + 1;
        }
    }

private:
    struct Shift {
        int first;
        int last;
        int by;
    };

    std::vector<Shift> shifts; ///< ascending
};

} // namespace

/// Those in the data; the grid goes on behind it, but there is nothing to move there.
std::vector<int> MoveLinesCommand::startLines() const {
    ModelAxis const lines(*model, axis);
    std::vector<int> starts = lines.startLines(cells);
    std::erase_if(starts, [&](int line) { return line >= lines.modelCount(); });
    return starts;
}

void MoveLinesCommand::setMoves(TableData::LineMoves lineMoves) {
    moves = std::move(lineMoves);
    setSelectionCells(movedCells(), cells);
    setObsolete(std::all_of(moves.begin(), moves.end(), [](auto const& move) { return move.first == move.second; }));
}

/// `cells` after the moves, as compact as they are. Ranges across the lines stay.
RangeSet MoveLinesCommand::movedCells() const {
    LineShifts const shifts(moves);
    RangeAxis const& names = rangeAxis(axis);
    bool const rows = axis == Axis::Rows;
    std::vector<CellRect> rects;
    for (CellRect const& rect : cells.cells().rects()) {
        shifts.visit(rows ? rect.top : rect.left, rows ? rect.bottom : rect.right, [&](int first, int last, int by) {
            rects.push_back(rows ? CellRect{first + by, rect.left, last + by, rect.right}
                                 : CellRect{rect.top, first + by, rect.bottom, last + by});
        });
    }
    RangeSet moved(CellRegion::ofRects(rects));
    for (LineRun const& run : cells.lines()) {
        if (run.range.type != names.lineType) {
            moved.addLines(run);
            continue;
        }
        shifts.visit(run.firstLine(), run.lastLine(),
                     [&](int first, int last, int by) { moved.addLines(run.part(first + by, last + by)); });
    }
    if (auto main = cells.mainCell()) {
        auto& [row, col] = *main;
        int& line = rows ? row : col;
        if (cells.cells().contains(row, col) || cells.hasLine(axis, line))
            shifts.visit(line, line, [&line = line](int, int, int by) { line += by; });
        moved.setMainCell(row, col);
    }
    return moved;
}

void MoveLinesCommand::apply() {
    ModelAxis(*model, axis).move(moves);
    selectNewCells();
    scrollAlong(!moves.empty() && moves.front().second < moves.front().first, newSelection);
}

void MoveLinesCommand::revert() {
    TableData::LineMoves back = moves;
    for (auto& [from, to] : back)
        std::swap(from, to);
    ModelAxis(*model, axis).move(back);
    selectOldCells();
    scrollAlong(!moves.empty() && moves.front().second > moves.front().first, cells);
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
    // The line that leads goes first.
    if (delta > 0)
        std::reverse(lines.begin(), lines.end());
    TableData::LineMoves moves;
    for (int const line : lines)
        moves.emplace_back(line, line + delta);
    setMoves(std::move(moves));
}

MoveLinesAbsoluteCommand::MoveLinesAbsoluteCommand(Axis axis, TableModel* model, RangeSet const& cells, int to,
                                                   bool changeSelection, QUndoCommand* parent)
    : MoveLinesCommand(axis, model, cells, changeSelection, parent) {
    setText(axis == Axis::Rows ? QStringLiteral("MoveRowsAbsoluteCommand") : QStringLiteral("MoveColsAbsoluteCommand"));
    std::vector<int> const lines = startLines();
    auto const behind = std::lower_bound(lines.begin(), lines.end(), to);
    TableData::LineMoves moves;
    int target = to;
    for (auto line = behind; line != lines.begin();) {
        --line;
        moves.emplace_back(*line, --target);
    }
    target = to;
    for (auto line = behind; line != lines.end(); ++line)
        moves.emplace_back(*line, target++);
    setMoves(std::move(moves));
}
