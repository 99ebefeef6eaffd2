// What a view paints over its cells: marks of lines and cells, and the text that an input method composes.

#include "model/TableModel.h"
#include "view/AbstractTableView.h"
#include "view/TableDelegate.h"

#include <QPainter>

#include <algorithm>

// The marks.

void AbstractTableView::setRowLineHighlightIndexes(std::vector<int> const& rows) {
    rowLineHighlightIndexes = rows;
    viewport()->update();
}

void AbstractTableView::setColLineHighlightIndexes(std::vector<int> const& cols) {
    colLineHighlightIndexes = cols;
    viewport()->update();
}

void AbstractTableView::setCellBorderRange(RangeVector const& ranges) {
    cellBorderRanges = ranges;
    viewport()->update();
}

void AbstractTableView::setHighlightedLineColor(QColor const& color) {
    if (highlightedLineColor == color)
        return;
    highlightedLineColor = color;
    viewport()->update();
    emit highlightedLineColorChanged();
}

void AbstractTableView::setCellBorderColor(QColor const& color) {
    if (cellBorderColor == color)
        return;
    cellBorderColor = color;
    viewport()->update();
    emit cellBorderColorChanged();
}

// Painting.

bool AbstractTableView::isMarked() const {
    return !rowLineHighlightIndexes.empty() || !colLineHighlightIndexes.empty() || !cellBorderRanges.empty();
}

void AbstractTableView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!isMarked() && preeditText.isEmpty())
        return;
    QPainter painter(viewport());
    paintLineHighlights(painter, Axis::Rows);
    paintLineHighlights(painter, Axis::Columns);
    paintCellBorders(painter);
    if (!preeditText.isEmpty())
        paintComposition(painter);
}

void AbstractTableView::paintLineHighlights(QPainter& painter, Axis axis) {
    constexpr double width = 4.0;
    constexpr int firstWholePosition = 2; // the first line's mark would lie half outside
    painter.setPen(QPen(highlightedLineColor, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (int const line : axis == Axis::Rows ? rowLineHighlightIndexes : colLineHighlightIndexes) {
        int const position = axis == Axis::Rows ? rowViewportPosition(line) : columnViewportPosition(line);
        if (position < 0)
            continue;
        int const at = std::max(position, firstWholePosition);
        if (axis == Axis::Rows)
            painter.drawLine(0, at, viewport()->width(), at);
        else
            painter.drawLine(at, 0, at, viewport()->height());
    }
}

void AbstractTableView::paintCellBorders(QPainter& painter) {
    painter.setPen(QPen(cellBorderColor, 1.0));
    for (Range const& range : cellBorderRanges) {
        if (range.type != RangeType::Cell)
            continue;
        int const left = columnViewportPosition(range.col);
        int const top = rowViewportPosition(range.row);
        int const right = std::max(left + columnWidth(range.col), 0) - 1;
        int const bottom = std::max(top + rowHeight(range.row), 0) - 1;
        if (top < 0 || left < 0)
            continue;
        painter.drawLine(left, top, right, top);
        painter.drawLine(left, bottom, right, bottom);
        painter.drawLine(left, top, left, bottom);
        painter.drawLine(right, top, right, bottom);
    }
}

void AbstractTableView::paintComposition(QPainter& painter) {
    QRect const area = viewport()->rect();
    int const firstRow = rowAt(0);
    int const firstCol = columnAt(0);
    int const lastRow = std::max(rowAt(area.bottom()), 0);
    int const lastCol = std::max(columnAt(area.right()), 0);
    int const endRow = rowAt(area.bottom()) < 0 ? table->rowCount() - 1 : lastRow;
    int const endCol = columnAt(area.right()) < 0 ? table->columnCount() - 1 : lastCol;
    for (int row = std::max(firstRow, 0); row <= endRow; ++row) {
        for (int col = std::max(firstCol, 0); col <= endCol; ++col) {
            if (table->cellInSelection(Range(row, col, RangeIndexType::Model)))
                paintCompositionIn(painter, table->index(row, col));
        }
    }
}

void AbstractTableView::paintCompositionIn(QPainter& painter, QModelIndex const& index) {
    constexpr int margin = 4;
    QRect const cell = visualRect(index);
    painter.fillRect(cell, delegate->getEditorBackgroundColor());
    painter.setPen(delegate->getTextColor());
    painter.setFont(table->getFont());
    painter.drawText(cell.adjusted(margin, 0, -margin, 0), Qt::AlignLeft | Qt::AlignVCenter, preeditText);
}
