// The editor pane: how it follows the main cell of the active table, how an edit takes place in it, and its height.

#include "app/PaneView.h"
#include "view/EditorPane.h"
#include "view/EditorPaneLoader.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr int handleWidth = 5;
constexpr int animationMs = 125;

} // namespace

void PaneView::setupEditorPane() {
    editorPane = new EditorPane(splitter);
    loader = new EditorPaneLoader(editorPane, this);
    splitter->setHandleWidth(handleWidth);
    splitter->setChildrenCollapsible(true);
    splitter->setCollapsible(0, false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    // Also the first and last steps of the animation can be shown.
    editorPane->setMinimumHeight(1);
    editorPane->hide();
    splitter->handle(1)->installEventFilter(this);
    editorPane->installEventFilter(this);
    heightAnimation.setDuration(animationMs);
    connect(&heightAnimation, &QVariantAnimation::valueChanged, this, &PaneView::setEditorPaneHeightSlot);

    connect(editorPane, &EditorPane::editingFinishedSignal, this, &PaneView::onEditingFinished);
    connect(editorPane, &EditorPane::EditorPaneFocusInSignal, this, &PaneView::onEditorPaneFocusIn);
    connect(editorPane, &QPlainTextEdit::textChanged, this, &PaneView::onEditorPaneTextChanged);
    connect(loader, &EditorPaneLoader::chunkedLoadFinished, this, [this] {
        if (std::exchange(typedDuringLoad, false))
            onEditorPaneTextChanged();
    });
    connect(editorPane, &EditorPane::nextRowWithColumnResetSignal, this, [this] {
        if (activeTable != nullptr)
            activeTable->nextRowWithColumnReset();
    });
    connect(editorPane, &EditorPane::nextColumnWithColumnResetSignal, this, [this] {
        if (activeTable != nullptr)
            activeTable->nextColumnWithColumnReset();
    });
    connect(editorPane, &EditorPane::previousColumnWithColumnResetSignal, this, [this] {
        if (activeTable != nullptr)
            activeTable->previousColumnWithColumnReset();
    });
}

void PaneView::connectEditing(TableView* table) {
    auto const isActive = [this, table] { return table == activeTable; };
    connect(table, qOverload<bool, bool>(&TableView::startOffCellEditSignal), this,
            [this, isActive](bool overwrite, bool atEnd) {
                if (isActive())
                    onStartOffCellEdit(overwrite, atEnd);
            });
    connect(table, qOverload<bool, QKeyEvent*>(&TableView::startOffCellEditSignal), this,
            [this, isActive](bool overwrite, QKeyEvent* event) {
                if (isActive())
                    onStartOffCellEdit(overwrite, event);
            });
    connect(table, &TableView::mainCellChangedSignal, this, [this, isActive](Range const& mainCell) {
        if (isActive())
            onMainCellChanged(mainCell);
    });
    connect(table, &TableView::showEditorPaneSignal, this, &PaneView::showEditorPane);
    connect(table, &AbstractTableView::addContextSignal, this, [this, isActive](Context flags) {
        if (isActive())
            emit addContextSignal(flags);
    });
    connect(table, &AbstractTableView::removeContextSignal, this, [this, isActive](Context flags) {
        if (isActive())
            emit removeContextSignal(flags);
    });
}

void PaneView::setContext(Context newContext) {
    context = newContext;
    if (activeTable != nullptr)
        activeTable->setContext(context);
}

void PaneView::setLetEditorPaneConsumeNavigationKeystrokes(bool on) {
    editorPane->setLetEditorPaneConsumeNavigationKeystrokes(on);
    for (Page const& page : pageList)
        page.table->setLetEditorPaneConsumeNavigationKeystrokes(on);
}

void PaneView::propagateSettings(Settings const& settings) {
    editorPane->setLetEditorPaneConsumeNavigationKeystrokes(
        settings.getValueBool(SettingType::LetEditorPaneConsumeNavigationKeystrokes));
    for (Page const& page : pageList)
        page.table->propagateSettings(settings);
}

// The pane follows the main cell.

/// The cell that the pane shows already keeps its cursor, as when an edit begins or ends.
void PaneView::onMainCellChanged(Range const& mainCell) {
    if (keepPaneText)
        return;
    bool const sameCell = mainCell == shownCell;
    shownCell = mainCell;
    TableModel const& model = *activeTable->tableModel();
    editorPane->setReadOnly(model.isReadOnly() || model.isLoading());
    QString const text = mainCell.value().toString();
    if (sameCell && loader->isShowing(text))
        return;
    typedDuringLoad = false;
    loader->request(text);
}

// Edits in the pane.

/// Gives the pane the focus, and the whole text or none at all.
void PaneView::prepareEditorPane(bool overwrite) {
    if (overwrite) {
        loader->abandon();
        editorPane->clear();
    } else {
        loader->flush();
    }
    editorPane->setFocus(Qt::OtherFocusReason);
}

void PaneView::onStartOffCellEdit(bool overwrite, bool atEnd) {
    using Place = EditorPaneLoader::CursorPlace;
    QSignalBlocker const blocker(editorPane);
    bool const atFront = activeTable->takeLargeCellCursorAtFront() && !atEnd;
    prepareEditorPane(overwrite);
    if (atEnd || atFront) {
        loader->setCursorPlace(atEnd ? Place::End : Place::Front);
        loader->applyCursorPlace();
    } else if (loader->cursorPlace() == Place::End) {
        loader->setCursorPlace(Place::Unset);
    }
}

void PaneView::onStartOffCellEdit(bool overwrite, QKeyEvent* event) {
    QSignalBlocker const blocker(editorPane);
    loader->setCursorPlace(EditorPaneLoader::CursorPlace::End);
    prepareEditorPane(overwrite);
    loader->setCursorPlace(EditorPaneLoader::CursorPlace::End);
    editorPane->deliverKey(event);
    loader->applyCursorPlace();
}

/// Loads do not come here, only what the user does to the text.
void PaneView::onEditorPaneTextChanged() {
    if (activeTable == nullptr)
        return;
    if (loader->isChunkedLoadActive()) {
        typedDuringLoad = true;
        return;
    }
    QString const text = loader->text();
    // The focus can come to the pane without a click.
    if (!activeTable->getPendingEdit()) {
        keepPaneText = true;
        activeTable->startEditing(false, false);
        keepPaneText = false;
    }
    activeTable->onCellTextEdited(text);
}

void PaneView::onEditingFinished() {
    if (activeTable == nullptr)
        return;
    QPointer<QWidget> const focused = QApplication::focusWidget();
    activeTable->stopEditing(true); // may ask
    // A click that has ended the edit has given the focus to where it went.
    if (focused && focused != editorPane)
        focused->setFocus(Qt::MouseFocusReason);
    else if (activeTable != nullptr)
        activeTable->setFocus();
}

void PaneView::onEditorPaneFocusIn() {
    if (activeTable != nullptr)
        activeTable->startEditing(false, false);
}

// Its height.

void PaneView::showEditorPane(bool show, bool animate) {
    if (show == editorPaneShown)
        return;
    int const current = editorPane->isHidden() ? 0 : splitter->sizes().at(1);
    if (show) {
        editorPane->show();
    } else {
        if (activeTable != nullptr && activeTable->isEditing())
            onEditingFinished();
        if (current > 0 && heightAnimation.state() != QAbstractAnimation::Running)
            editorPaneHeight = current;
    }
    noteEditorPaneShown(show);
    heightAnimation.stop();
    int const target = show ? editorPaneHeight : 0;
    if (animate)
        animateEditorPane(current, target);
    else
        setEditorPaneHeightSlot(target);
}

void PaneView::animateEditorPane(int from, int to) {
    heightAnimation.setStartValue(from);
    heightAnimation.setEndValue(to);
    heightAnimation.start();
}

void PaneView::setEditorPaneHeightSlot(QVariant const& height) {
    int const pixels = height.toInt();
    if (pixels == 0 && !editorPaneShown) {
        editorPane->hide();
        return;
    }
    int const total = splitter->height() - handleWidth;
    splitter->setSizes({std::max(total - pixels, 0), pixels});
}

void PaneView::noteEditorPaneShown(bool shown) {
    editorPaneShown = shown;
    if (shown)
        emit addContextSignal(Context::EditorPaneShown);
    else
        emit removeContextSignal(Context::EditorPaneShown);
}

/// A drag of the handle can close the pane and open it again. Nothing is typed into a text that is about to change.
bool PaneView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == editorPane && event->type() == QEvent::FocusIn)
        loader->flush();
    if (watched == splitter->handle(1) && event->type() == QEvent::MouseButtonRelease) {
        int const height = splitter->sizes().at(1);
        if (height > 0)
            editorPaneHeight = height;
        noteEditorPaneShown(height > 0);
    }
    return QWidget::eventFilter(watched, event);
}
