#include "view/EditorPane.h"

#include "view/PaneKeys.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>

EditorPane::EditorPane(QWidget* parent) : QPlainTextEdit(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Editor pane"));
}

void EditorPane::keyPressEvent(QKeyEvent* event) {
    PaneKeyAction const action = paneKeyAction(*event, letEditorPaneConsumeNavigationKeystrokes);
    // A Tab that is not accepted would go on to move the focus between the widgets of the window.
    if (action != PaneKeyAction::Base)
        event->accept();
    switch (action) {
    case PaneKeyAction::Base: QPlainTextEdit::keyPressEvent(event); return;
    case PaneKeyAction::InsertTab: insertPlainText(QStringLiteral("\t")); return;
    case PaneKeyAction::LineBreak: {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Enter, Qt::NoModifier);
        QPlainTextEdit::keyPressEvent(&enter);
        return;
    }
    case PaneKeyAction::NextRow:
        emit editingFinishedSignal();
        emit nextRowWithColumnResetSignal();
        return;
    case PaneKeyAction::NextColumn:
        emit editingFinishedSignal();
        emit nextColumnWithColumnResetSignal();
        return;
    case PaneKeyAction::PreviousColumn:
        emit editingFinishedSignal();
        emit previousColumnWithColumnResetSignal();
        return;
    case PaneKeyAction::Finish: emit editingFinishedSignal(); return;
    }
}

QMimeData* EditorPane::createMimeDataFromSelection() const {
    auto* const data = new QMimeData;
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    data->setText(text);
    return data;
}

void EditorPane::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::BacktabFocusReason) {
        emit editingFinishedSignal();
        return;
    }
    QPlainTextEdit::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason)
        emit EditorPaneFocusInSignal();
}

void EditorPane::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() == Qt::MouseFocusReason)
        emit editingFinishedSignal();
}
