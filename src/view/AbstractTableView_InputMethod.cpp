// Input methods while no editor has the focus: a composition is shown in the selected cells, and what is committed
// begins an edit.

#include "model/TableModel.h"
#include "view/AbstractTableView.h"
#include "view/TableDelegate.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

bool composesOrCommits(QInputMethodEvent const& event) {
    auto const& attributes = event.attributes();
    return !event.commitString().isEmpty() || !event.preeditString().isEmpty() ||
           std::any_of(attributes.begin(), attributes.end(),
                       [](auto const& attribute) { return attribute.length != 0; });
}

} // namespace

void AbstractTableView::inputMethodEvent(QInputMethodEvent* event) {
    if (isMousePressed() || isLoading()) {
        QTableView::inputMethodEvent(event);
    } else if (startingEditFromInputMethod) {
        event->accept();
    } else if (editing) {
        forwardToEditor(event);
    } else if (composesOrCommits(*event) || !preeditText.isEmpty()) {
        composeInCells(event);
    } else {
        QTableView::inputMethodEvent(event);
    }
}

void AbstractTableView::forwardToEditor(QInputMethodEvent* event) {
    if (cellEditor == nullptr || cellEditor->hasFocus()) {
        QTableView::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent copy(event->preeditString(), event->attributes());
    copy.setCommitString(event->commitString(), event->replacementStart(), event->replacementLength());
    QCoreApplication::sendEvent(cellEditor, &copy);
    event->accept();
}

void AbstractTableView::composeInCells(QInputMethodEvent* event) {
    event->accept();
    if (std::exchange(preeditText, event->preeditString()) != preeditText)
        viewport()->update();
    if (event->commitString().isEmpty() || isReadOnlyTable())
        return;
    preeditText.clear();
    beginEditWith(event->commitString());
}

void AbstractTableView::beginEditWith(QString const& text) {
    startingEditFromInputMethod = true;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier);
    emit startEditingSignal(true, &key);
    startingEditFromInputMethod = false;
    if (cellEditor != nullptr) {
        if (cellEditor->text() != text)
            cellEditor->insert(text);
        emit cellEditor->textEdited(cellEditor->text());
        return;
    }
    // The editor pane has taken the edit.
    QWidget* const focused = QApplication::focusWidget();
    if (focused != nullptr && focused != this) {
        QInputMethodEvent commit;
        commit.setCommitString(text);
        QCoreApplication::sendEvent(focused, &commit);
    }
}

/// The window of candidates stands under the main cell.
QVariant AbstractTableView::inputMethodQuery(Qt::InputMethodQuery query) const {
    Range const& cell = table->getMainCell();
    QModelIndex const index = table->index(cell.row, cell.col);
    if (query != Qt::ImCursorRectangle || !index.isValid())
        return QTableView::inputMethodQuery(query);
    QPoint const below = visualRect(index).bottomLeft() + viewport()->pos() + QPoint(0, 1);
    return QRect(below, below);
}
