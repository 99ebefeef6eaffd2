// The bands that keep header rows and columns in sight: how they stay in step with the view beneath them in place,
// size, scroll position and the sizes of rows and columns.

#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/TableView.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace {

/// What a band of rows is higher than its rows, so that an edge of the rows beneath sets it apart.
constexpr int rowBandEdge = 2;

} // namespace

// Construction.

void TableView::setupFrozenHeaders() {
    horizontalFrozenView = new FrozenTableView(TableType::HorizontalFrozen, this);
    verticalFrozenView = new FrozenTableView(TableType::VerticalFrozen, this);
    cornerFrozenView = new FrozenTableView(TableType::CornerFrozen, this);
    horizontalFrozenView->stackUnder(cornerFrozenView);
    verticalFrozenView->stackUnder(cornerFrozenView);
    horizontalFrozenView->horizontalHeader()->hide();
    verticalFrozenView->verticalHeader()->hide();
    cornerFrozenView->horizontalHeader()->hide();
    cornerFrozenView->verticalHeader()->hide();
    for (FrozenTableView* const view : frozenViews()) {
        view->setNumRows(numHeaderRows);
        view->setNumCols(numHeaderCols);
        view->hide();
        view->viewport()->installEventFilter(this);
        rowSizes->addBand(*view->verticalHeader());
        colSizes->addBand(*view->horizontalHeader());
        connectFrozenView(view);
    }
    // A band grows as a label of it is dragged.
    connect(rowSizes, &LineSizes::resizedByHand, this, &TableView::placeFrozenViews);
    connect(colSizes, &LineSizes::resizedByHand, this, &TableView::placeFrozenViews);
    // Qt bounds the bars of a band anew whenever it is laid out.
    connect(horizontalFrozenView->horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            [this] { followScrollBar(Axis::Columns); });
    connect(verticalFrozenView->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this] { followScrollBar(Axis::Rows); });
}

void TableView::connectFrozenView(FrozenTableView* view) {
    connect(view, &FrozenTableView::moveSelectionRelativeSignal, this, &TableView::moveSelectionRelativeSlot);
    connect(view, &AbstractTableView::scrollSignal, this, &AbstractTableView::scrollSignal);
    connect(view, &AbstractTableView::scrollToMainCellSignal, this, &TableView::scrollToMainCell);
    connect(view, &AbstractTableView::addContextSignal, this, &AbstractTableView::addContextSignal);
    connect(view, &AbstractTableView::removeContextSignal, this, &AbstractTableView::removeContextSignal);
    connect(view, &AbstractTableView::moveCellContentsAbsoluteSignal, this,
            &AbstractTableView::moveCellContentsAbsoluteSignal);
    connect(view, qOverload<bool>(&AbstractTableView::startEditingSignal), this,
            qOverload<bool>(&AbstractTableView::startEditingSignal));
    connect(view, qOverload<bool, QKeyEvent*>(&AbstractTableView::startEditingSignal), this,
            qOverload<bool, QKeyEvent*>(&AbstractTableView::startEditingSignal));
    // A drag in a band shows in all views.
    connect(view, &AbstractTableView::selectionExpandingSignal, this, &TableView::refreshView);
    connectHeader(view->getHorizontalHeaderView());
    connectHeader(view->getVerticalHeaderView());
}

std::array<FrozenTableView*, 3> TableView::frozenViews() const {
    return {horizontalFrozenView, verticalFrozenView, cornerFrozenView};
}

std::array<AbstractTableView*, 4> TableView::allViews() {
    return {this, horizontalFrozenView, verticalFrozenView, cornerFrozenView};
}

// Showing.

void TableView::setFreezeHeaderRows(bool on, bool emitChange) {
    freezeHeaderRows = on;
    tableModel()->setFreezeHeaderRows(on);
    onFreezeChanged(emitChange);
}

void TableView::setFreezeHeaderColumns(bool on, bool emitChange) {
    freezeHeaderColumns = on;
    tableModel()->setFreezeHeaderColumns(on);
    onFreezeChanged(emitChange);
}

void TableView::onFreezeChanged(bool emitChange) {
    showFrozenViews();
    refreshView();
    if (emitChange)
        emit fileMetadataChangedSignal();
}

/// The corner is where both bands cross, and there only.
void TableView::showFrozenViews() {
    bool const cross = freezeHeaderRows && freezeHeaderColumns && numHeaderRows > 0 && numHeaderCols > 0;
    auto const show = [this](FrozenTableView* view, bool on) {
        if (on && !view->hasModel()) {
            view->takeModelOf(*this);
            setTableOfSizes();
        }
        view->setVisible(on);
    };
    show(horizontalFrozenView, freezeHeaderRows);
    show(verticalFrozenView, freezeHeaderColumns);
    show(cornerFrozenView, cross);
    cornerFrozenView->raise();
    showSizes();
    placeFrozenViews();
    followScrollBar(Axis::Rows);
    followScrollBar(Axis::Columns);
}

// Place and size. The bands' cells lie exactly over those of this view; the borders at their ends lie outside.

int TableView::headerExtent(Axis axis) const {
    QHeaderView const& header = axis == Axis::Rows ? *verticalHeader() : *horizontalHeader();
    if (header.isHidden())
        return 0;
    return axis == Axis::Rows ? header.width() : header.height();
}

int TableView::bandExtent(Axis axis) const {
    return int(scrollAxis(axis).position(axis == Axis::Rows ? numHeaderRows : numHeaderCols));
}

void TableView::placeFrozenViews() {
    setFrozenPos();
    setHorizontalFrozenWidth();
    setHorizontalFrozenHeight();
    setVerticalFrozenWidth();
    setVerticalFrozenHeight();
    setCornerFrozenWidth();
    setCornerFrozenHeight();
}

void TableView::setFrozenPos() {
    int const left = frameWidth() + headerExtent(Axis::Rows);
    int const top = frameWidth() + headerExtent(Axis::Columns);
    horizontalFrozenView->move(frameWidth() - FrozenTableView::borderWidth, top);
    verticalFrozenView->move(left, frameWidth() - FrozenTableView::borderWidth);
    cornerFrozenView->move(left, top);
}

void TableView::setHorizontalFrozenWidth() {
    QSignalBlocker const blocker(horizontalFrozenView);
    int const border = FrozenTableView::borderWidth;
    horizontalFrozenView->resize(viewport()->width() + headerExtent(Axis::Rows) + border,
                                 horizontalFrozenView->height());
}

void TableView::setHorizontalFrozenHeight() {
    QSignalBlocker const blocker(horizontalFrozenView);
    int const height = std::min(bandExtent(Axis::Rows) + rowBandEdge, std::max(viewport()->height(), rowBandEdge));
    horizontalFrozenView->resize(horizontalFrozenView->width(), height);
}

void TableView::setVerticalFrozenWidth() {
    QSignalBlocker const blocker(verticalFrozenView);
    verticalFrozenView->resize(std::min(bandExtent(Axis::Columns), viewport()->width()), verticalFrozenView->height());
}

void TableView::setVerticalFrozenHeight() {
    QSignalBlocker const blocker(verticalFrozenView);
    int const border = FrozenTableView::borderWidth;
    verticalFrozenView->resize(verticalFrozenView->width(),
                               viewport()->height() + headerExtent(Axis::Columns) + border);
}

void TableView::setCornerFrozenWidth() {
    cornerFrozenView->resize(verticalFrozenView->width(), cornerFrozenView->height());
}

void TableView::setCornerFrozenHeight() {
    cornerFrozenView->resize(cornerFrozenView->width(), std::min(bandExtent(Axis::Rows), viewport()->height()));
}

/// Also after the headers and the viewport have changed their sizes, and after lines have been resized together.
void TableView::updateGeometries() {
    if (cornerFrozenView != nullptr)
        takeSizes();
    AbstractTableView::updateGeometries();
    if (cornerFrozenView == nullptr)
        return;
    placeFrozenViews();
    for (FrozenTableView* const view : frozenViews()) {
        if (view->isVisible())
            view->relayOut();
    }
}

// Scrolling. A band is moved in the same step as the view, before either is painted: both show the same position in
// each frame. The paint of a scroll bar checks it once more, for a bar that was moved with its signals off.

void TableView::followScrollBar(Axis axis) {
    FrozenTableView* const band = axis == Axis::Rows ? verticalFrozenView : horizontalFrozenView;
    if (band->hasModel())
        band->follow(axis, *scrollBarOf(axis));
}

// Events of the bands.

bool TableView::filterFrozenEvent(QObject const* watched, QEvent* event) {
    for (FrozenTableView const* const view : frozenViews()) {
        if (watched != view->viewport())
            continue;
        if (event->type() == QEvent::MouseMove)
            return passDragOn(*view, *static_cast<QMouseEvent const*>(event));
        if (event->type() != QEvent::Wheel)
            return false;
        QAbstractScrollArea::wheelEvent(static_cast<QWheelEvent*>(event));
        return true;
    }
    return false;
}

/// A drag that leaves a band goes on in the view that shows what is under it: from the corner that can be a band, in
/// all other cases it is this one.
bool TableView::passDragOn(FrozenTableView const& from, QMouseEvent const& move) {
    QPointF const point = move.position();
    bool const below = from.showsRows() && point.y() >= from.viewport()->height();
    bool const beside = from.showsCols() && point.x() >= from.viewport()->width();
    if (!below && !beside)
        return false;
    AbstractTableView* to = this;
    if (from.showsRows() && from.showsCols() && !(below && beside))
        to = below ? verticalFrozenView : horizontalFrozenView;
    QPointF const there = to->viewport()->mapFromGlobal(from.viewport()->mapToGlobal(point));
    if (to == this) {
        QMouseEvent own(move.type(), there, move.globalPosition(), move.button(), move.buttons(), move.modifiers(),
                        move.pointingDevice());
        mouseMoveEvent(&own);
    } else if (move.buttons() == Qt::LeftButton) {
        to->expandSelection(to->cellAtPos(there.toPoint()));
    }
    return true;
}
