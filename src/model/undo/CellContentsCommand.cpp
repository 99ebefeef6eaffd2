#include "model/undo/CellContentsCommand.h"

#include "model/undo/ModelAxis.h"

#include <algorithm>
#include <utility>

void CellContentsCommand::flagFirstIfNone(RangeVector& ranges) {
    auto const holdsMainCell = [](Range const& range) { return range.hasMainCell; };
    if (ranges.empty() || std::any_of(ranges.begin(), ranges.end(), holdsMainCell))
        return;
    Range& first = ranges.front();
    first.hasMainCell = true;
    first.mainIndex = first.mainRow = first.mainCol = 0;
}

void CellContentsCommand::retainContents() {
    model->populateCellDataValues(cells, false, true);
}

void CellContentsCommand::carry(RangeVector const& sources, int rows, int cols, bool vacate) {
    std::vector<RangeVector> lines;
    model->getCellArrayByRows(lines, sources, false, false);
    RangeVector carried;
    model->convertCellArrayToCells(lines, carried);
    cells.clear();
    if (vacate) {
        cells = carried;
        for (Range& cell : cells)
            cell.value = QString();
    }
    // The cells of the array would hold texts as they are displayed, and a long text is cut there.
    model->populateCellDataValues(carried, true, false);
    carried.moveRelative(rows, cols, true);
    cells.insert(cells.end(), carried.begin(), carried.end());
    retainContents();

    if (!changeSelection)
        return;
    RangeVector moved = sources;
    moved.moveRelative(rows, cols, true);
    flagFirstIfNone(moved);
    setSelectionCells(moved, sources);
}

void CellContentsCommand::apply() {
    // A whole row, column or table is filled as far as the grid goes, which follows the selection and the settings. A
    // later redo has to fill the same cells.
    ModelAxis rows(*model, Axis::Rows);
    ModelAxis cols(*model, Axis::Columns);
    if (firstRedo) {
        gridRows = rows.gridCount();
        gridCols = cols.gridCount();
    } else {
        rows.setGridCount(gridRows);
        cols.setGridCount(gridCols);
    }
    model->populateModel(cells, false, Range(RangeType::None), false);
    model->enforceAutoFitOnModel(cells);
    selectNewCells();
}

void CellContentsCommand::revert() {
    for (Range& range : cells) {
        // A whole row or column with one new text goes into excluded cells as well, so they get theirs back too.
        auto excludedRows = std::exchange(range.excludedRows, {});
        auto excludedCols = std::exchange(range.excludedCols, {});
        model->populateModel(range, true, Range(RangeType::None), false);
        range.excludedRows = std::move(excludedRows);
        range.excludedCols = std::move(excludedCols);
    }
    model->enforceAutoFitOnModel(cells);
    selectOldCells();
}
