// Editing cells: where an edit takes place and how it begins and ends. What it writes is CellEdit's.

#include "view/CellLengths.h"
#include "view/EditorPane.h"
#include "view/FrozenTableView.h"
#include "view/LeftOutQuestion.h"
#include "view/MsgBox.h"
#include "view/SaveFailureMessage.h"
#include "view/TableDelegate.h"
#include "view/TableView.h"
#include "view/TextKeys.h"
#include "view/TypingGuard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QUndoCommand>

#include <utility>

// Construction.

void TableView::connectEditing() {
    connect(this, qOverload<bool>(&AbstractTableView::startEditingSignal), this,
            [this](bool overwrite) { startEditing(overwrite, true); });
    connect(this, qOverload<bool, QKeyEvent*>(&AbstractTableView::startEditingSignal), this,
            qOverload<bool, QKeyEvent*>(&TableView::startEditing));
    connectSignalsWithDelegate(tableDelegate());
    for (FrozenTableView const* const view : frozenViews())
        connectSignalsWithDelegate(view->tableDelegate());
    connect(&stack, &QUndoStack::cleanChanged, this, [this](bool clean) {
        autoSaveFailed = autoSaveFailed && !clean;
        emit undoStackCleanChangedSignal(!hasUnsavedChanges());
    });
}

void TableView::connectEditingWithModel() {
    connect(tableModel(), &TableModel::autoSaveFailedSignal, this, &TableView::onAutoSaveFailed);
    connect(tableModel(), &TableModel::autoSaveHeldBackSignal, this, &TableView::onAutoSaveHeldBack);
    connect(tableModel(), &TableModel::saveFinishedSignal, this, &TableView::onTableSavedOrLoaded);
    connect(tableModel(), &TableModel::loadFinishedSignal, this, &TableView::onTableSavedOrLoaded);
}

void TableView::connectSignalsWithDelegate(TableDelegate* delegate) {
    connect(delegate, &TableDelegate::editorCreatedSignal, this, &TableView::onCellEditorCreated);
    connect(delegate, &TableDelegate::textEditedSignal, this, &TableView::onCellTextEdited);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this, &TableView::onCellEditingFinished);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this, &TableView::onEditorClosed);
    connect(delegate, &TableDelegate::nextRowWithColumnResetSignal, this, &TableView::nextRowWithColumnReset);
    connect(delegate, &TableDelegate::nextColumnWithColumnResetSignal, this, &TableView::nextColumnWithColumnReset);
    connect(delegate, &TableDelegate::previousColumnWithColumnResetSignal, this,
            &TableView::previousColumnWithColumnReset);
    connect(delegate, &TableDelegate::stopEditingSignal, this, [this] { stopEditing(); });
}

// Where an edit takes place.

AbstractTableView* TableView::getCurrentlyEditedView() {
    Range const& cell = pendingEdit ? pendingEdit->mainRange() : tableModel()->getMainCell();
    bool const inRows = isFrozenLine(Axis::Rows, cell.row);
    bool const inCols = isFrozenLine(Axis::Columns, cell.col);
    if (inRows && inCols)
        return cornerFrozenView;
    if (inRows)
        return horizontalFrozenView;
    if (inCols)
        return verticalFrozenView;
    return this;
}

QModelIndex TableView::mainIndex() const {
    Range const& cell = tableModel()->getMainCell();
    return tableModel()->index(cell.row, cell.col);
}

QString TableView::mainText() const {
    return mainIndex().data(Qt::EditRole).toString();
}

/// Whether an edit may go on. A long cell needs the pane, and the user is asked before that is opened.
bool TableView::resolveEditPathForLargeMainCell(bool& usePane) {
    if (usePane)
        return true;
    if (inLargeCellPrompt)
        return false;
    if (!mainIndex().isValid() || mainText().size() <= CellLengths::longestInPlace)
        return true;
    if (!askForEditorPane())
        return false;
    emit showEditorPaneSignal(true, false);
    largeCellCursorAtFront = true;
    usePane = true;
    return true;
}

bool TableView::askForEditorPane() {
    MsgBox box(this);
    box.setTheme(tableModel()->getTheme());
    box.setText(tr("This is a large cell which can only be edited in the editor pane.\n"
                   "Would you like to open the editor pane?"));
    QPushButton* const open = box.addButton(tr("&Open"), QMessageBox::AcceptRole);
    box.addButton(tr("Do&n't Open"), QMessageBox::RejectRole);
    box.setDefaultButton(open);
    box.conditionButtons();
    inLargeCellPrompt = true;
    box.exec();
    inLargeCellPrompt = false;
    return box.clickedButton() == open;
}

// How an edit begins.

void TableView::startEditing(bool overwrite, bool cursorAtEnd) {
    if (isReadOnlyTable())
        return;
    stopEditing();
    bool usePane = isEditorPaneShown();
    if (usePane && mainText().size() > CellLengths::longestInPlace)
        largeCellCursorAtFront = true;
    if (!resolveEditPathForLargeMainCell(usePane))
        return;
    scrollToMainCell(true, true);
    deselectAllButTheMainCell();
    beginEdit();
    if (usePane)
        emit startOffCellEditSignal(overwrite, !largeCellCursorAtFront && cursorAtEnd);
    else
        openCellEditor(overwrite, false, nullptr);
}

void TableView::startEditing(bool overwrite, QKeyEvent* event) {
    if (isReadOnlyTable())
        return;
    stopEditing();
    bool const fromInputMethod = isInputMethodKey(*event) || event->key() == Qt::Key_unknown;
    bool usePane = isEditorPaneShown();
    // What is typed replaces a long cell; its text need not be loaded for that.
    bool const skipLoad =
        !usePane && mainText().size() > CellLengths::longestInPlace && (fromInputMethod || !event->text().isEmpty());
    if (!skipLoad && !resolveEditPathForLargeMainCell(usePane))
        return;
    scrollToMainCell(true, true);
    beginEdit();
    if (!usePane) {
        openCellEditor(overwrite, skipLoad, fromInputMethod ? nullptr : event);
        return;
    }
    if (largeCellCursorAtFront)
        emit startOffCellEditSignal(overwrite, false);
    else
        emit startOffCellEditSignal(overwrite, event);
    onCellTextEdited(event->text());
}

void TableView::beginEdit() {
    pendingEdit.emplace(*tableModel());
    setEditStateOfAllViews(true, nullptr);
    emit addContextSignal(Context::CellEditing);
}

void TableView::openCellEditor(bool overwrite, bool startEmpty, QKeyEvent* event) {
    AbstractTableView* const view = getCurrentlyEditedView();
    TableDelegate* const delegate = view->tableDelegate();
    view->setFocus(Qt::OtherFocusReason);
    delegate->setStartEmpty(startEmpty);
    delegate->setOverwriteOnEdit(overwrite);
    delegate->setSuppressTextEdited(true);
    if (event != nullptr)
        view->editOnAnyKeyPressed(mainIndex(), event);
    else
        view->openEditor(mainIndex());
    delegate->setSuppressTextEdited(false);
    delegate->setOverwriteOnEdit(true);
    delegate->setStartEmpty(false);
    cancelEditingIfEditorWasNotCreated();
}

void TableView::cancelEditingIfEditorWasNotCreated() {
    if (cellEditor == nullptr)
        dropPendingEdit();
}

void TableView::dropPendingEdit() {
    pendingEdit.reset();
    setEditStateOfAllViews(false, nullptr);
    AbstractTableView::dropPendingEdit();
}

void TableView::onCellEditorCreated(QWidget* editor) {
    setEditStateOfAllViews(isEditing(), qobject_cast<QuickEdit*>(editor));
}

void TableView::setEditStateOfAllViews(bool open, QuickEdit* editor) {
    setEditState(open, editor);
    for (FrozenTableView* const view : frozenViews())
        view->setEditState(open, editor);
}

/// Only one who asks for an edit gets one; Qt also calls this for clicks and moves of its own current cell.
bool TableView::edit(QModelIndex const& index, EditTrigger trigger, QEvent* event) {
    if (trigger != AllEditTriggers || isEditing() || !index.isValid())
        return AbstractTableView::edit(index, trigger, event);
    startEditing(index.data(Qt::EditRole).toString().isEmpty(), true);
    return cellEditor != nullptr;
}

// What happens while it is open.

void TableView::onCellTextEdited(QString const& text) {
    emit mainCellLengthChangedSignal(int(text.size()));
    if (!pendingEdit)
        return;
    pendingEdit->setText(text, cellEditor != nullptr);
    widenTo(text, pendingEdit->ranges());
    keepEditorInSight();
    // The editor shows its own cell.
    if (pendingEdit->isMultiCell() || cellEditor == nullptr)
        refreshView();
}

/// The text may have widened the column of the editor past the edge of the view.
void TableView::keepEditorInSight() {
    if (!autoFitColWidth || cellEditor == nullptr)
        return;
    auto const& [row, col] = std::pair(pendingEdit->mainRange().row, pendingEdit->mainRange().col);
    if (isFrozenLine(Axis::Columns, col))
        placeFrozenViews();
    else if (columnViewportPosition(col) + columnWidth(col) > viewport()->width())
        scrollToCell(row, col, true, true, isFrozenLine(Axis::Rows, row) ? Axis::Columns : Axis::Both);
    else
        return;
    getCurrentlyEditedView()->placeEditor();
}

// How it ends.

void TableView::stopEditing(bool commit) {
    QPointer<TableView> const alive(this);
    setEditState(false, cellEditor);
    if (!hasContext(Context::CellEditing) && !pendingEdit)
        return;
    if (pendingEdit) {
        closeEditorPublic(cellEditor);
        for (FrozenTableView* const view : frozenViews())
            view->closeEditorPublic(cellEditor);
        setFocus(Qt::OtherFocusReason);
        if (!commit) {
            pendingEdit->revert();
            tableModel()->enforceAutoFitOnModel(pendingEdit->ranges());
            refreshView();
            pendingEdit.reset();
        }
        onCellEditingFinished();
    }
    if (alive)
        onEditorClosed();
}

void TableView::onCellEditingFinished() {
    setEditStateOfAllViews(isEditing(), nullptr);
    if (!pendingEdit)
        return;
    // Asking and pushing may show a message, and the edit is over by then.
    QPointer<TableView> const alive(this);
    CellEdit edit = std::move(*pendingEdit);
    pendingEdit.reset();
    std::optional<LeftOut> const leftOut = askBeforeCommit(edit);
    if (!alive)
        return;
    bool const changed = edit.isTextChanged();
    std::unique_ptr<QUndoCommand> command;
    if (leftOut)
        command = edit.finish(*leftOut);
    else
        edit.revert();
    if (command)
        pushUndoCommand(command.release());
    else if (changed) {
        tableModel()->enforceAutoFitOnModel(edit.ranges());
        refreshView();
        emit mainCellChangedSignal(getMainCell(true)); // the pane may show what was typed
    }
    emit addContextSignal(Context::Navigating);
}

/// What becomes of cells that were taken out of the edit's ranges; none if the text is given up.
std::optional<LeftOut> TableView::askBeforeCommit(CellEdit const& edit) {
    if (!edit.isTextChanged() || !wouldChangeLeftOutCells(*tableModel(), edit.ranges(), edit.text()))
        return LeftOut::Change;
    QPointer<TableView> const alive(this);
    std::optional<LeftOut> const answer = askAboutLeftOutCells(this, *tableModel(), edit.ranges(), edit.text());
    if (alive)
        endDragsLater();
    return answer;
}

/// A press that a box has come between: its release never reaches the table.
void TableView::endDragsLater() {
    auto const end = [this] {
        for (AbstractTableView* const view : allViews())
            view->endCutOffDrag();
    };
    QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
}

void TableView::onEditorClosed() {
    setEditStateOfAllViews(false, nullptr);
    emit removeContextSignal(Context::CellEditing);
}

/// Whoever moves the main cell: the text stays in the cell where it was typed. The command of the edit selects what it
/// has written to, and after it what is selected by now is selected again.
void TableView::onMainCellChanged(Range const& mainCell) {
    if (!pendingEdit || pendingEdit->isAt(mainCell)) {
        emit mainCellChangedSignal(mainCell);
        return;
    }
    TableModel* const model = tableModel();
    Range const moved = model->getMainCell();
    RangeSet const selected = model->getSelectedSet();
    QPointer<QWidget> const focused = QApplication::focusWidget();
    bool const inEditor = focused == cellEditor || qobject_cast<EditorPane*>(focused) != nullptr;
    QPointer<TableView> const alive = this;
    stopEditing(); // may ask about cells that were taken out
    if (!alive)
        return;
    if (!inEditor && focused)
        focused->setFocus(Qt::OtherFocusReason);
    if (selected.isEmpty())
        model->clearSelection(moved);
    else
        model->setSelection(moved, selected);
}

void TableView::onAutoSaveFailed(QString const& fileName, QString const& reason) {
    autoSaveFailed = true;
    emit undoStackCleanChangedSignal(false);
    bool const isWaiting = !untoldFailure.isEmpty();
    untoldFailure = buildSaveFailureMessage(fileName, reason);
    if (isWaiting)
        return;
    // A series of texts goes on, and each is kept.
    TypingGuard::whenStill(this, [this] {
        QString const text = std::exchange(untoldFailure, QString());
        if (!autoSaveFailed)
            return;
        QPointer<TableView> const alive(this);
        MsgBox::inform(this, tableModel()->getTheme(), text);
        if (alive)
            endDragsLater();
    });
}

void TableView::onAutoSaveHeldBack(QString const& sentence) {
    autoSaveFailed = true;
    emit undoStackCleanChangedSignal(false);
    emit messageSignal(sentence);
}

void TableView::onTableSavedOrLoaded() {
    autoSaveFailed = false;
}
