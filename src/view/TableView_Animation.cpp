// Rows and columns that are inserted and removed on the model's behalf: they grow and collapse before the eye.

#include "core/IndexUtilities.h"
#include "model/TableModel.h"
#include "view/LineAnimation.h"
#include "view/TableView.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

void TableView::setupAnimations() {
    rowResizeAnimation = new LineAnimation(*rowSizes, this);
    colResizeAnimation = new LineAnimation(*colSizes, this);
}

void TableView::finishAnimations() {
    rowResizeAnimation->finish();
    colResizeAnimation->finish();
}

// Insertions.

void TableView::insertLines(Axis axis, std::vector<int> lines) {
    finishAnimations();
    std::sort(lines.begin(), lines.end());
    axis == Axis::Rows ? tableModel()->insertRows(lines) : tableModel()->insertCols(lines);
    showSizes();
    animationOf(axis).grow(lines, sizesOf(axis).defaultSize());
    enforceTableSize();
}

// Removals.

void TableView::removeRowsSlot(std::vector<int> rows) {
    std::sort(rows.begin(), rows.end());
    hideRows(rows);
}

void TableView::removeColsSlot(std::vector<int> cols) {
    std::sort(cols.begin(), cols.end());
    hideCols(cols);
}

void TableView::hideRows(std::vector<int>& rows) {
    finishAnimations();
    rowsToRemove = rows;
    rowResizeAnimation->collapse(rows, [this] { performRemoveRows(); });
}

void TableView::hideCols(std::vector<int>& cols) {
    finishAnimations();
    colsToRemove = cols;
    colResizeAnimation->collapse(cols, [this] { performRemoveCols(); });
}

// A run of lines goes at once, for each removal has the table laid out anew.

void TableView::performRemoveRows() {
    auto const runs = Utilities::getBlockPairs(std::exchange(rowsToRemove, {}));
    for (auto run = runs.rbegin(); run != runs.rend(); ++run)
        tableModel()->removeRows(run->first, run->second - run->first + 1);
    enforceTableSize();
}

void TableView::performRemoveCols() {
    auto const runs = Utilities::getBlockPairs(std::exchange(colsToRemove, {}));
    for (auto run = runs.rbegin(); run != runs.rend(); ++run)
        tableModel()->removeColumns(run->first, run->second - run->first + 1);
    enforceTableSize();
}
