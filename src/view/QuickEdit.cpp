#include "view/QuickEdit.h"

#include "view/TextKeys.h"

#include <QCloseEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

/// Keys that are the table's also while its editor is open.
bool isForTable(QKeyEvent const& event) {
    switch (event.key()) {
    case Qt::Key_Enter: return event.modifiers() == Qt::NoModifier || event.modifiers() == Qt::KeypadModifier;
    case Qt::Key_Return: return event.modifiers() == Qt::NoModifier;
    case Qt::Key_Up:
    case Qt::Key_Down: return true;
    default: return false;
    }
}

} // namespace

QuickEdit::QuickEdit(QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    setAccessibleName(tr("Cell"));
}

void QuickEdit::setEditorColors(QColor const& background, QColor const& text) {
    setStyleSheet(QStringLiteral("QLineEdit {background: %1;\n").arg(background.name()) +
                  QStringLiteral("color: %1;}\n").arg(text.name()));
}

void QuickEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (overwriteOnEdit || openedByRightClick)
        return;
    deselect();
    end(false);
}

void QuickEdit::keyPressEvent(QKeyEvent* event) {
    if (isInputMethodKey(*event)) {
        event->accept();
        return;
    }
    if (isForTable(*event)) {
        event->ignore();
        return;
    }
    keyHeld = true;
    emit unicodeTypingSignal(true);
    QLineEdit::keyPressEvent(event);
}

void QuickEdit::keyReleaseEvent(QKeyEvent* event) {
    keyHeld = false;
    emit unicodeTypingSignal(false);
    QLineEdit::keyReleaseEvent(event);
}

/// Stays open while a character is entered by several keys.
void QuickEdit::closeEvent(QCloseEvent* event) {
    event->setAccepted(!keyHeld);
}

void QuickEdit::mousePressEvent(QMouseEvent* event) {
    openedByRightClick = event->button() == Qt::RightButton;
    QLineEdit::mousePressEvent(event);
}

/// The edited cells show a composition while it lasts, and show it no longer when it is cancelled.
void QuickEdit::inputMethodEvent(QInputMethodEvent* event) {
    bool const wasComposing = composing;
    QString const preedit = event->preeditString();
    bool const commits = !event->commitString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    composing = !preedit.isEmpty();
    if (composing)
        emit textEdited(QString(text()).insert(cursorPosition(), preedit));
    else if (wasComposing && !commits)
        emit textEdited(text());
}
