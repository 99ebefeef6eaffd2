// The labels of rows and columns, and which rows and columns are headers. What presses on labels select is
// HeaderGestures'.

#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/TLCornerButton.h"
#include "view/TableDelegate.h"
#include "view/TableView.h"

#include <QMouseEvent>
#include <QSignalBlocker>

namespace {

/// What the presses on the labels of one axis lead to.
struct HeaderSlots {
    using Slot = void (TableView::*)(int);

    Slot clicked;
    Slot ctrlClicked;
    Slot shiftClicked;
    Slot rightClicked;
    Slot entered;
    Slot doubleClicked;
    void (TableView::*released)();
    void (TableView::*geometryChanged)();
};

constexpr HeaderSlots columnSlots{
    &TableView::onHorizontalSectionClicked,      &TableView::onHorizontalSectionCtrlClicked,
    &TableView::onHorizontalSectionShiftClicked, &TableView::onHorizontalSectionRightClicked,
    &TableView::onHorizontalSectionEntered,      &TableView::onHorizontalSectionDoubleClicked,
    &TableView::onHorizontalMouseReleased,       &TableView::onHorizontalGeometryChanged};
constexpr HeaderSlots rowSlots{&TableView::onVerticalSectionClicked,      &TableView::onVerticalSectionCtrlClicked,
                               &TableView::onVerticalSectionShiftClicked, &TableView::onVerticalSectionRightClicked,
                               &TableView::onVerticalSectionEntered,      &TableView::onVerticalSectionDoubleClicked,
                               &TableView::onVerticalMouseReleased,       &TableView::onVerticalGeometryChanged};

} // namespace

void TableView::connectHeader(HeaderView* header) {
    HeaderSlots const& leadsTo = header->getAxis() == Axis::Rows ? rowSlots : columnSlots;
    connect(header, &QHeaderView::sectionClicked, this, leadsTo.clicked);
    connect(header, &QHeaderView::sectionEntered, this, leadsTo.entered);
    connect(header, &QHeaderView::sectionDoubleClicked, this, leadsTo.doubleClicked);
    connect(header, &QHeaderView::geometriesChanged, this, leadsTo.geometryChanged);
    connect(header, &HeaderView::sectionCtrlClicked, this, leadsTo.ctrlClicked);
    connect(header, &HeaderView::sectionShiftClicked, this, leadsTo.shiftClicked);
    connect(header, &HeaderView::sectionRightClicked, this, leadsTo.rightClicked);
    connect(header, &HeaderView::mouseReleased, this, leadsTo.released);
}

// Presses on labels.

void TableView::onSectionClicked(Axis axis, int section) {
    gestures.press(*tableModel(), axis, section);
    refreshView();
}

void TableView::onSectionCtrlClicked(Axis axis, int section) {
    gestures.ctrlPress(*tableModel(), axis, section);
    refreshView();
}

void TableView::onSectionShiftClicked(Axis axis, int section) {
    if (gestures.shiftPress(*tableModel(), axis, section) == HeaderGestures::ShiftPress::DragSections)
        emit arrayDragStartSignal(axis, section);
    refreshView();
}

void TableView::onSectionRightClicked(Axis axis, int section) {
    gestures.rightPress(*tableModel(), axis, section);
    refreshView();
}

void TableView::onSectionEntered(Axis axis, int section) {
    if (gestures.enter(*tableModel(), axis, section))
        refreshView();
}

void TableView::onSectionDoubleClicked(Axis axis, int section) {
    if (section >= 0)
        sortRowsOrCols(HeaderGestures::nextSort(*tableModel(), axis, section));
}

// The corner button.

void TableView::onTopLeftCornerButtonClicked() {
    selectEntireTable();
}

void TableView::onTopLeftCornerButtonCtrlClicked() {
    addWholeTableToSelection();
}

bool TableView::filterCornerButtonEvent(QObject const* watched, QEvent const* event) {
    if (watched != topLeftCornerButton || event->type() != QEvent::MouseButtonPress)
        return false;
    auto const* const press = static_cast<QMouseEvent const*>(event);
    if (press->button() != Qt::LeftButton)
        return false;
    if (press->modifiers() == Qt::NoModifier)
        onTopLeftCornerButtonClicked();
    else if (press->modifiers() == Qt::ControlModifier)
        onTopLeftCornerButtonCtrlClicked();
    setFocus(Qt::OtherFocusReason);
    return true;
}

void TableView::onHorizontalGeometryChanged() {
    placeCornerButton();
}

void TableView::onVerticalGeometryChanged() {
    placeCornerButton();
}

void TableView::placeCornerButton() {
    int const frame = frameWidth();
    topLeftCornerButton->setGeometry(frame, frame, headerExtent(Axis::Rows), headerExtent(Axis::Columns));
}

// Which labels are shown, and what they say.

void TableView::setShowRowLabels(bool on) {
    showRowLabels = on;
    verticalHeader()->setVisible(on);
    horizontalFrozenView->verticalHeader()->setVisible(on);
    updateGeometries();
    placeCornerButton();
}

void TableView::setShowColLabels(bool on) {
    showColLabels = on;
    horizontalHeader()->setVisible(on);
    verticalFrozenView->horizontalHeader()->setVisible(on);
    updateGeometries();
    placeCornerButton();
}

void TableView::refreshHeaders() {
    syncVisibleHeaderRowsFromModel(false);
    for (AbstractTableView const* const view : allViews()) {
        view->getHorizontalHeaderView()->relayOut();
        view->getVerticalHeaderView()->relayOut();
    }
}

void TableView::setFirstRowIndex(int index, bool emitChange) {
    tableModel()->setFirstRowIndex(index);
    refreshHeaders();
    if (emitChange)
        emit fileMetadataChangedSignal();
}

void TableView::setFirstColIndex(int index, bool emitChange, bool restore) {
    if (!restore)
        firstColIndex = index;
    tableModel()->setFirstColIndex(representColumnsAsLetters && !restore ? 0 : firstColIndex);
    refreshHeaders();
    widenToLabels();
    if (emitChange)
        emit fileMetadataChangedSignal();
}

void TableView::setRepresentColumnsAsLetters(bool on) {
    representColumnsAsLetters = on;
    tableModel()->setRepresentColumnsAsLetters(on);
    setFirstColIndex(firstColIndex, false, !on);
}

// Header rows and columns.

void TableView::setNumberOfHeaderRows(int count, bool emitChange) {
    tableModel()->setNumberOfHeaderRows(count);
    applyVisibleHeaderRows(tableModel()->getNumVisibleHeaderRows(), emitChange,
                           tableModel()->getCellColorOptions().highlightHeaderRows);
}

void TableView::setNumberOfHeaderColumns(int count, bool emitChange) {
    tableModel()->setNumberOfHeaderCols(count);
    numHeaderCols = tableModel()->getNumHeaderCols();
    for (AbstractTableView const* const view : allViews())
        view->tableDelegate()->setNumHeaderCols(numHeaderCols);
    for (FrozenTableView* const view : frozenViews())
        view->setNumCols(numHeaderCols);
    // That header rows are highlighted decides also here.
    onHeaderCountChanged(emitChange, tableModel()->getCellColorOptions().highlightHeaderRows);
}

void TableView::applyVisibleHeaderRows(int count, bool emitChange, bool autoFit) {
    numHeaderRows = count;
    for (AbstractTableView const* const view : allViews())
        view->tableDelegate()->setNumHeaderRows(count);
    for (FrozenTableView* const view : frozenViews())
        view->setNumRows(count);
    onHeaderCountChanged(emitChange, autoFit);
}

void TableView::onHeaderCountChanged(bool emitChange, bool autoFit) {
    showFrozenViews();
    for (FrozenTableView* const view : frozenViews())
        view->relayOut();
    refreshView();
    if (autoFit) {
        enforceAutoFitColWidth(true);
        enforceAutoFitRowHeight(true);
    }
    if (emitChange)
        emit fileMetadataChangedSignal();
}

void TableView::syncVisibleHeaderRowsFromModel(bool emitChange) {
    int const count = tableModel()->getNumVisibleHeaderRows();
    if (count != numHeaderRows)
        applyVisibleHeaderRows(count, emitChange, false);
}

void TableView::setHighlightHeaderRows(bool on, bool emitChange) {
    tableModel()->setHighlightHeaderRows(on);
    for (AbstractTableView const* const view : allViews())
        view->tableDelegate()->setHighlightHeaderRows(on);
    onHighlightChanged(emitChange);
}

void TableView::setHighlightHeaderColumns(bool on, bool emitChange) {
    tableModel()->setHighlightHeaderColumns(on);
    for (AbstractTableView const* const view : allViews())
        view->tableDelegate()->setHighlightHeaderCols(on);
    onHighlightChanged(emitChange);
}

void TableView::onHighlightChanged(bool emitChange) {
    refreshView();
    // Bold texts are wider.
    enforceAutoFitColWidth(true);
    if (emitChange)
        emit fileMetadataChangedSignal();
}
