#include "view/AbstractTableView.h"

#include "model/TableModel.h"
#include "view/CellHit.h"
#include "view/HeaderView.h"
#include "view/PressRules.h"
#include "view/SelectionMoves.h"
#include "view/TableDelegate.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace {

bool isSet(Range const& corner) {
    return corner.row != -1 && corner.col != -1;
}

std::unique_ptr<QMouseEvent> copyOf(QMouseEvent const& event) {
    return std::make_unique<QMouseEvent>(event.type(), event.position(), event.globalPosition(), event.button(),
                                         event.buttons(), event.modifiers(), QPointingDevice::primaryPointingDevice());
}

} // namespace

AbstractTableView::AbstractTableView(TableType type, QWidget* parent)
    : QTableView(parent), delegate(new TableDelegate(this)), tableType(type),
      horizontalHeaderView(new HeaderView(Qt::Horizontal, this)),
      verticalHeaderView(new HeaderView(Qt::Vertical, this)) {
    setTextElideMode(Qt::ElideRight);
    setWordWrap(false);
    setAttribute(Qt::WA_InputMethodEnabled);
    setHorizontalHeader(horizontalHeaderView);
    setVerticalHeader(verticalHeaderView);
    for (HeaderView const* const header : {horizontalHeaderView, verticalHeaderView}) {
        // What a press or a drag on the labels selects is the model's and not Qt's.
        disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
        disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
    }
    horizontalHeaderView->setTableType(type);
    verticalHeaderView->setTableType(type);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setAcceptDrops(true);
    // Selecting and scrolling are this class's alone, also where it calls Qt's handlers.
    setSelectionMode(QAbstractItemView::NoSelection);
    setAutoScroll(false);
    setItemDelegate(delegate);
    // Edits begin by startEditingSignal and never by themselves.
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

AbstractTableView::~AbstractTableView() = default;

void AbstractTableView::setModel(QAbstractItemModel* model) {
    table = qobject_cast<TableModel*>(model);
    QTableView::setModel(model);
}

void AbstractTableView::setContext(Context newContext) {
    context = newContext;
}

bool AbstractTableView::hasContext(Context flag) const {
    return (static_cast<unsigned>(context) & static_cast<unsigned>(flag)) != 0;
}

void AbstractTableView::setLetEditorPaneConsumeNavigationKeystrokes(bool on) {
    letEditorPaneConsumeNavigationKeystrokes = on;
}

bool AbstractTableView::isLoading() const {
    return table != nullptr && table->isLoading();
}

/// A band that has never been shown has no table.
bool AbstractTableView::isMousePressed() const {
    return table != nullptr && isSet(table->getPendingCornerStart());
}

QScrollBar* AbstractTableView::scrollBarOf(Axis axis) const {
    return axis == Axis::Rows ? verticalScrollBar() : horizontalScrollBar();
}

HeaderAxis AbstractTableView::plainAxis(Axis axis, HeaderAxis::Frozen frozen) const {
    int const extent = axis == Axis::Rows ? viewport()->height() : viewport()->width();
    return {*headerView(axis), *scrollBarOf(axis), extent, frozen};
}

void AbstractTableView::refreshView() {
    viewport()->update();
}

void AbstractTableView::deselectAllButTheMainCell() {
    table->setSelection(table->getMainCell());
}

// Keys.

KeyState AbstractTableView::keyState() const {
    KeyState state;
    state.dead = isMousePressed() || isLoading();
    state.cellEditing = hasContext(Context::CellEditing);
    state.editing = editing;
    state.editorPaneShown = hasContext(Context::EditorPaneShown);
    state.paneTakesKeys = letEditorPaneConsumeNavigationKeystrokes;
    state.cellEditorShown = cellEditor != nullptr && cellEditor->isVisible();
    state.leftByEditor = cellEditor != nullptr && window()->focusWidget() == cellEditor;
    return state;
}

bool AbstractTableView::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && !isLoading()) {
        auto* const key = static_cast<QKeyEvent*>(event);
        KeyDecision const decision = decideTab(*key, keyState());
        if (decision.action != KeyAction::PassToBase)
            return carryOut(decision, key);
    }
    return QTableView::event(event);
}

void AbstractTableView::keyPressEvent(QKeyEvent* event) {
    KeyDecision const decision = decideKey(*event, keyState());
    if (decision.action == KeyAction::PassToBase)
        QAbstractItemView::keyPressEvent(event);
    else
        carryOut(decision, event);
}

/// Returns whether the key was for the table.
bool AbstractTableView::carryOut(KeyDecision const& decision, QKeyEvent* event) {
    struct Step {
        int rows;
        int cols;
    };
    static constexpr Step steps[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}}; // in the order of Direction
    event->accept();
    switch (decision.action) {
    case KeyAction::NextRow: nextRowWithColumnReset(); break;
    case KeyAction::NextColumn: nextColumnWithColumnReset(); break;
    case KeyAction::PreviousColumn: previousColumnWithColumnReset(); break;
    case KeyAction::Move: {
        auto const [rows, cols] = steps[static_cast<int>(decision.direction)];
        moveSelectionRelative(rows, cols);
        break;
    }
    case KeyAction::Scroll: emit scrollSignal(decision.direction, false); break;
    case KeyAction::StartEdit: emit startEditingSignal(true, event); break;
    case KeyAction::Ignore: event->ignore(); return false;
    case KeyAction::Swallow:
    case KeyAction::PassToBase: break;
    }
    return true;
}

void AbstractTableView::nextRowWithColumnReset() {
    int const target = std::exchange(columnResetTarget, -1);
    moveSelectionRelative(1, target >= 0 ? target - table->getMainCell().col : 0);
    table->enforceTableSize();
}

void AbstractTableView::nextColumnWithColumnReset() {
    if (columnResetTarget == -1)
        columnResetTarget = table->getMainCell().col;
    moveSelectionRelative(0, 1);
    table->enforceTableSize();
}

void AbstractTableView::previousColumnWithColumnReset() {
    moveSelectionRelative(0, -1);
    table->enforceTableSize();
}

void AbstractTableView::editMainCellAppend() {
    Range const& mainCell = table->getMainCell();
    QModelIndex const index = table->index(mainCell.row, mainCell.col);
    emit startEditingSignal(index.data(Qt::EditRole).toString().isEmpty());
}

// The mouse.

Range AbstractTableView::cellAtPos(int x, int y) const {
    Range cell(lineAtPos(plainAxis(Axis::Rows), y), lineAtPos(plainAxis(Axis::Columns), x), RangeIndexType::Model);
    Range const& mainCell = table->getMainCell();
    cell.hasMainCell = cell.row == mainCell.row && cell.col == mainCell.col;
    return cell;
}

void AbstractTableView::mousePressEvent(QMouseEvent* event) {
    if (isLoading())
        return;
    pressEventCopy = copyOf(*event);
    QPoint const point = event->position().toPoint();
    switch (decidePress(event->button(), event->modifiers())) {
    case PressAction::Select:
    case PressAction::AddToSelection:
        if (indexAt(point).isValid())
            beginSelection(cellAtPos(point), event->modifiers() == Qt::ControlModifier);
        return;
    case PressAction::TakeOut:
        if (QModelIndex const index = indexAt(point); index.isValid()) {
            table->removeCellFromSelection(index.row(), index.column());
            refreshView();
        }
        return;
    case PressAction::Extend: extendSelectionTo(cellAtPos(point)); break;
    case PressAction::BaseHandler: break;
    }
    QTableView::mousePressEvent(event);
}

void AbstractTableView::beginSelection(Range const& cell, bool add) {
    ctrlSelecting = add;
    if (!add)
        table->clearSelection(cell);
    table->setMainCell(cell);
    table->setPendingSelectionCorner(cell, true);
    refreshView();
}

/// A press on a selected cell leaves the selection alone.
void AbstractTableView::extendSelectionTo(Range const& cell) {
    if (table->cellInSelection(cell))
        return;
    Range const mainCell = table->getMainCell();
    table->setSelection(mainCell);
    table->setPendingSelectionCorner(mainCell, true);
    expandSelection(cell);
}

void AbstractTableView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::LeftButton)
        expandSelection(cellAtPos(event->position().toPoint()));
}

/// Presses that begin no selection, as one that takes a cell out of it or a double click, are followed by moves too.
void AbstractTableView::expandSelection(Range cell) {
    if (!isMousePressed() || cell == table->getPendingCornerEnd())
        return;
    cell.row = std::max(cell.row, 0);
    cell.col = std::max(cell.col, 0);
    table->setPendingSelectionCorner(cell, false);
    refreshView();
    emit selectionExpandingSignal(this);
}

void AbstractTableView::mouseReleaseEvent(QMouseEvent*) {
    finishDrag();
    pressEventCopy.reset();
}

void AbstractTableView::finishDrag() {
    if (table == nullptr)
        return;
    Range const& start = table->getPendingCornerStart();
    if (isSet(start)) {
        Range const& end = isSet(table->getPendingCornerEnd()) ? table->getPendingCornerEnd() : start;
        RangeSet const cells = SelectionMoves::rectangle(start, end);
        if (ctrlSelecting)
            table->addCellsToSelection(cells);
        else
            table->setSelection(Range(start.row, start.col, RangeIndexType::Model), cells);
    }
    table->setPendingCorners(Range(RangeType::None), Range(RangeType::None));
    ctrlSelecting = false;
    refreshView();
}

void AbstractTableView::endCutOffDrag() {
    if (auto const press = std::move(pressEventCopy))
        mouseReleaseEvent(press.get());
}

void AbstractTableView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (table != nullptr && event->button() == Qt::LeftButton && !isLoading()) {
        deselectAllButTheMainCell();
        editMainCellAppend();
    }
    pressEventCopy.reset();
}

void AbstractTableView::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::OtherFocusReason && !acceptNextOtherFocus)
        return;
    acceptNextOtherFocus = false;
    QAbstractItemView::focusInEvent(event);
    // Qt's handler goes by its own current cell, which is not used.
    setAttribute(Qt::WA_InputMethodEnabled);
}

// Editing.

void AbstractTableView::setEditState(bool open, QuickEdit* editor) {
    editing = open;
    cellEditor = editor;
}

void AbstractTableView::openEditor(QModelIndex const& index) {
    QTableView::edit(index, AllEditTriggers, nullptr);
}

void AbstractTableView::editOnAnyKeyPressed(QModelIndex const& index, QKeyEvent* event) {
    setEditTriggers(AnyKeyPressed);
    QTableView::edit(index, AnyKeyPressed, event);
    setEditTriggers(NoEditTriggers);
}

void AbstractTableView::closeEditorPublic(QWidget* editor) {
    if (editor != nullptr && editor->parentWidget() == viewport())
        closeEditor(editor, QAbstractItemDelegate::NoHint);
}

/// Where an edit goes on is not for Qt to say.
void AbstractTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint) {
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool AbstractTableView::isReadOnlyTable() const {
    return hasContext(Context::ReadOnly) || table->isReadOnly() || isLoading();
}

// The context menu.

void AbstractTableView::setupContextMenus(CommandActions const& actions) {
    commands = actions;
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &AbstractTableView::onCustomContextMenu,
            Qt::UniqueConnection);
    horizontalHeaderView->setupContextMenus(actions);
    verticalHeaderView->setupContextMenus(actions);
}

void AbstractTableView::onCustomContextMenu(QPoint const& point) {
    QModelIndex const index = indexAt(point);
    if (!index.isValid())
        return;
    bool const editIsReal = (editing && hasContext(Context::EditorPaneShown)) || cellEditor != nullptr;
    if (tableType == TableType::Main && hasContext(Context::CellEditing) && !editIsReal)
        dropPendingEdit();
    Range const cell(index.row(), index.column(), RangeIndexType::Model);
    if (!table->cellInSelection(cell)) {
        table->setSelection(cell);
        refreshView();
    }
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    appendToMenu(*menu, cellMenuEntries(hasContext(Context::MultiCellSelection)), commands);
    appendToMenu(*menu, commonCellMenuEntries(), commands);
    holdWhileShown(*menu);
    menu->popup(viewport()->mapToGlobal(point));
}

void AbstractTableView::dropPendingEdit() {
    editing = false;
    emit removeContextSignal(Context::CellEditing);
}
