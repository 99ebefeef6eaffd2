// Scrolling: what the wheel, the scroll bars and moves of the main cell do to the scroll bars. The arithmetic is
// ScrollGeometry's.

#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/ScrollGeometry.h"
#include "view/TLCornerButton.h"
#include "view/TableView.h"
#include "view/WheelRules.h"

#include <QInputDevice>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

HeaderAxis TableView::scrollAxis(Axis axis) const {
    bool const rows = axis == Axis::Rows;
    bool const shown = rows ? freezeHeaderRows : freezeHeaderColumns;
    int const band = rows ? horizontalFrozenView->height() : verticalFrozenView->width();
    return plainAxis(axis, {shown ? band : 0, rows ? numHeaderRows : numHeaderCols});
}

bool TableView::isFrozenLine(Axis axis, int line) const {
    return axis == Axis::Rows ? freezeHeaderRows && line < numHeaderRows : freezeHeaderColumns && line < numHeaderCols;
}

void TableView::setSlider(Axis axis, int position) {
    scrollBarOf(axis)->setSliderPosition(position);
}

void TableView::scrollAfterMove(Axis axis, int oldSection, int newSection) {
    // Rows may have been added since Qt last laid the table out.
    HeaderAxis const geometry = scrollAxis(axis);
    QScrollBar* const bar = scrollBarOf(axis);
    bar->setMaximum(std::max(bar->maximum(), ScrollGeometry::maximumFor(geometry)));
    setSlider(axis, ScrollGeometry::sliderAfterMove(geometry, oldSection, newSection));
}

void TableView::scrollToSection(Axis axis, int section, bool ifNeeded, bool minimal) {
    auto const target = ScrollGeometry::scrollToSection(scrollAxis(axis), section, ifNeeded, minimal);
    if (!target)
        return;
    scrollBarOf(axis)->setMaximum(target->maximum);
    setSlider(axis, target->slider);
}

void TableView::scrollToCell(int row, int col, bool ifNeeded, bool minimal, Axis axis) {
    showSizes();
    if (axis == Axis::Rows || axis == Axis::Both)
        scrollToSection(Axis::Rows, row, ifNeeded, minimal);
    if (axis == Axis::Columns || axis == Axis::Both)
        scrollToSection(Axis::Columns, col, ifNeeded, minimal);
    refreshView();
}

void TableView::scrollToRow(int row, bool ifNeeded, bool minimal) {
    scrollToCell(row, 0, ifNeeded, minimal, Axis::Rows);
}

void TableView::scrollToCol(int col, bool ifNeeded, bool minimal) {
    scrollToCell(0, col, ifNeeded, minimal, Axis::Columns);
}

void TableView::scrollToMainCell(bool ifNeeded, bool minimal) {
    Range const& mainCell = tableModel()->getMainCell();
    scrollToCell(mainCell.row, mainCell.col, ifNeeded, minimal, Axis::Both);
}

void TableView::scrollToTopLeft() {
    setSlider(Axis::Rows, 0);
    setSlider(Axis::Columns, 0);
}

void TableView::setInitialScrollBarLocations() {
    initialVerticalScroll = verticalScrollBar()->value();
    initialHorizontalScroll = horizontalScrollBar()->value();
}

void TableView::returnToInitialScrollBarLocations() {
    if (initialVerticalScroll != -1)
        setSlider(Axis::Rows, std::exchange(initialVerticalScroll, -1));
    if (initialHorizontalScroll != -1)
        setSlider(Axis::Columns, std::exchange(initialHorizontalScroll, -1));
}

/// While a drag extends the selection the view follows its corner. Cells in a frozen band are in sight anyway.
void TableView::onNewPendingSelectionCorner(Range const& corner) {
    if (!isFrozenLine(Axis::Rows, corner.row) && !isFrozenLine(Axis::Columns, corner.col))
        scrollToCell(corner.row, corner.col, true, false, Axis::Both);
}

void TableView::enforceTableSize() {
    tableModel()->enforceTableSize();
    showSizes();
    for (Axis const axis : {Axis::Rows, Axis::Columns})
        scrollBarOf(axis)->setMaximum(ScrollGeometry::maximumFor(scrollAxis(axis)));
}

// The wheel.

void TableView::wheelEvent(QWheelEvent* event) {
    QInputDevice const* const device = event->device();
    bool const trackpad = device != nullptr && device->type() == QInputDevice::DeviceType::TouchPad;
    WheelAction const action = decideWheel({event->modifiers(), trackpad, event->angleDelta()});
    if (action.kind == WheelAction::Kind::Pixels) {
        wheelScroll(action.axis, action.delta);
        wheelSnapTimer.start();
    } else if (action.kind == WheelAction::Kind::Step) {
        scroll(action.direction, action.page);
    }
    event->accept();
}

void TableView::wheelScroll(Axis axis, int delta) {
    setSlider(axis, std::max(scrollBarOf(axis)->value() + delta, 0));
}

void TableView::scroll(Direction direction, bool page, int rowPixels, int colPixels) {
    Axis const axis = SelectionMoves::axisOf(direction);
    bool const forward = SelectionMoves::isForward(direction);
    bool const rows = axis == Axis::Rows;
    bool const snap = rows ? snapToRowAfterScrolling : snapToColumnAfterScrolling;
    if (!page && !snap) {
        // Columns too go by the amount of rows here.
        setSlider(axis, scrollBarOf(axis)->value() + (forward ? rowPixels : -rowPixels));
        return;
    }
    HeaderAxis const geometry = scrollAxis(axis);
    int const step = rows ? rowPixels : colPixels;
    if (auto const target =
            ScrollGeometry::walk(geometry, forward, page ? ScrollGeometry::pageDistance(geometry) : step))
        setSlider(axis, *target);
}

void TableView::onWheelSnapTimerStopped() {
    wheelSnapTimer.stop();
    snapScrollBarPosition(Axis::Rows);
    snapScrollBarPosition(Axis::Columns);
}

void TableView::snapScrollBarPosition(Axis axis) {
    if (hasContext(Context::CellEditing))
        return;
    for (Axis const each : {Axis::Rows, Axis::Columns}) {
        bool const wanted = axis == each || axis == Axis::Both;
        bool const enabled = each == Axis::Rows ? snapToRowAfterScrolling : snapToColumnAfterScrolling;
        if (!wanted || !enabled)
            continue;
        if (auto const target = ScrollGeometry::snap(scrollAxis(each)))
            setSlider(each, *target);
    }
}

void TableView::onScrollBarValueChanged() {
    if (hasContext(Context::FindReplaceOpen))
        emit updateFindReplaceMatchesSignal();
}

// Events of the parts of the view.

bool TableView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == verticalScrollBar() || watched == horizontalScrollBar()) {
        Axis const axis = watched == verticalScrollBar() ? Axis::Rows : Axis::Columns;
        if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::HoverLeave)
            snapScrollBarPosition(axis);
        else if (event->type() == QEvent::Paint)
            followScrollBar(axis);
    }
    if (filterFrozenEvent(watched, event) || filterCornerButtonEvent(watched, event))
        return true;
    return AbstractTableView::eventFilter(watched, event);
}
