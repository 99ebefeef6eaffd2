#include "view/FrozenTableView.h"

FrozenTableView::FrozenTableView(TableType type, QWidget* parent) : AbstractTableView(type, parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
}

void FrozenTableView::moveSelectionRelative(int rows, int cols) {
    emit moveSelectionRelativeSignal(rows, cols);
}

void FrozenTableView::moveSelectionAbsolute(int, int) {}
