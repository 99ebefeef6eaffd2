// Marks and highlights, which all four views of a table show, and the look of its cells.

#include "model/TableModel.h"
#include "view/FrozenTableView.h"
#include "view/TableView.h"

void TableView::setRowLineHighlightIndexes(std::vector<int> const& userRows) {
    std::vector<int> const rows = tableModel()->getModelFromUserRows(userRows);
    for (AbstractTableView* const view : allViews())
        view->AbstractTableView::setRowLineHighlightIndexes(rows);
}

void TableView::setColLineHighlightIndexes(std::vector<int> const& userCols) {
    std::vector<int> const cols = tableModel()->getModelFromUserCols(userCols);
    for (AbstractTableView* const view : allViews())
        view->AbstractTableView::setColLineHighlightIndexes(cols);
}

void TableView::setCellBorderRange(RangeVector const& ranges) {
    for (AbstractTableView* const view : allViews())
        view->AbstractTableView::setCellBorderRange(ranges);
}

void TableView::setHighlightedRange(RangeVector const& ranges) {
    tableModel()->setHighlightedRange(ranges);
    setCellBorderRange(tableModel()->getModelRange(ranges));
    refreshView();
}

void TableView::setShadeEveryOtherRow(bool on) {
    tableModel()->setShadeEveryOtherRow(on);
    refreshView();
}

void TableView::setShadeEveryOtherColumn(bool on) {
    tableModel()->setShadeEveryOtherColumn(on);
    refreshView();
}

void TableView::setHighlightMainCellRow(bool on) {
    tableModel()->setHighlightMainCellRow(on);
    refreshView();
}

void TableView::setHighlightMainCellColumn(bool on) {
    tableModel()->setHighlightMainCellColumn(on);
    refreshView();
}
