#include "model/undo/CellContentsCommand.h"

#include "model/NewContents.h"
#include "model/TableModel.h"
#include "model/undo/ModelAxis.h"

#include <algorithm>
#include <utility>

namespace {

/// The ranges that are still in the table after the way, with the main cell or the first one instead of it.
RangeSet carriedSelection(RangeSet const& sources, int rows, int cols) {
    RangeSet const all = sources.moved(rows, cols);
    RangeSet carried(all.cells() & CellRegion({0, 0, INT_MAX, INT_MAX}));
    std::pair<int, int> first = carried.isEmpty() ? std::pair(INT_MAX, INT_MAX) : carried.cells().first();
    for (LineRun const& run : all.lines()) {
        if (run.position() < 0 || run.lastLine() < 0)
            continue;
        LineRun const inside = run.part(std::max(run.firstLine(), 0), run.lastLine());
        carried.addLines(inside);
        first = std::min(first, {inside.range.row, inside.range.col});
    }
    auto const main = all.mainCell();
    if (main && carried.covers(main->first, main->second))
        carried.setMainCell(main->first, main->second);
    else if (!carried.isEmpty())
        carried.setMainCell(first.first, first.second);
    return carried;
}

} // namespace

void CellContentsCommand::writeContents(RangeVector const& ranges) {
    patch = newContents(*model, ranges);
}

void CellContentsCommand::writeEverywhere(RangeSet const& ranges, QString const& text, LeftOut leftOut) {
    fill = Fill{ranges.coverage({model->rowCount(), model->columnCount()}, leftOut == LeftOut::Leave), text};
}

void CellContentsCommand::carry(RangeSet const& sources, int rows, int cols, bool vacate) {
    CellRegion const from = sources.coverage({model->rowCountModel(), model->columnCountModel()}, true);
    CellRegion const inside({0, 0, INT_MAX, INT_MAX});
    CellRegion const to = from.moved(rows, cols) & inside;
    if (vacate && to != from.moved(rows, cols)) {
        setObsolete(true);
        return;
    }
    TableData const& data = model->getTableData();
    auto const put = [&](int row, int col, std::string_view bytes) {
        int const rawRow = data.getRawFromModelRow(row);
        int const rawCol = data.getRawFromModelCol(col);
        if (data.cellBytesRaw(rawRow, rawCol) != bytes)
            patch.add(rawRow, rawCol, bytes);
    };
    auto const forEachCell = [](CellRegion const& region, auto visit) {
        for (CellRect const& rect : region.rects()) {
            for (int row = rect.top; row <= rect.bottom; ++row) {
                for (int col = rect.left; col <= rect.right; ++col)
                    visit(row, col);
            }
        }
    };
    forEachCell(to, [&](int row, int col) {
        put(row, col, data.cellBytesRaw(data.getRawFromModelRow(row - rows), data.getRawFromModelCol(col - cols)));
    });
    if (vacate)
        forEachCell(from - to, [&](int row, int col) { put(row, col, {}); });

    cells = RangeSet(vacate ? from | to : to);
    if (!changeSelection)
        return;
    setSelectionCells(carriedSelection(sources, rows, cols), sources);
}

/// Cells and lines that have been written behind the grid make it grow, also by empty texts.
void CellContentsCommand::growGrid() {
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        ModelAxis lines(*model, axis);
        int const needed = cells.lastStart(axis) + 1;
        if (needed <= lines.gridCount())
            continue;
        // Texts have made the data longer already, and nothing is to be inserted among them.
        if (lines.modelCount() > lines.gridCount())
            lines.setGridCount(std::min(lines.modelCount(), needed));
        lines.insert(lines.gridCount(), needed - lines.gridCount());
    }
}

void CellContentsCommand::apply() {
    TableData& data = model->getTableData();
    if (fill)
        data.fill(fill->cells, fill->text, replaced);
    else
        data.exchange(patch);
    growGrid();
    // The grid takes its size before cells are selected, which can lie where it has just grown.
    model->enforceTableSize();
    model->enforceAutoFitOnModel(cells);
    selectNewCells();
}

void CellContentsCommand::revert() {
    TableData& data = model->getTableData();
    if (fill)
        data.putBack(replaced);
    else
        data.exchange(patch);
    model->enforceAutoFitOnModel(cells);
    selectOldCells();
}

CellRegion CellContentsCommand::lostCharacters() const {
    if (!fill)
        return CellRegion::ofCells(patch.lossyCells());
    bool loses = false;
    TableData const& data = model->getTableData();
    data.getCodec().encode(fill->text, &loses);
    return loses ? data.rawCells(fill->cells) : CellRegion();
}
