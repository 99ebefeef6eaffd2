#include "view/KeyRules.h"

#include "view/TextKeys.h"

#include <QKeyEvent>

#include <optional>

namespace {

std::optional<Direction> arrowDirection(int key) {
    switch (key) {
    case Qt::Key_Up: return Direction::Up;
    case Qt::Key_Down: return Direction::Down;
    case Qt::Key_Left: return Direction::Left;
    case Qt::Key_Right: return Direction::Right;
    default: return std::nullopt;
    }
}

bool isPlainEnter(QKeyEvent const& event) {
    Qt::KeyboardModifiers const modifiers = event.modifiers();
    if (event.key() == Qt::Key_Enter)
        return modifiers == Qt::NoModifier || modifiers == Qt::KeypadModifier;
    return event.key() == Qt::Key_Return && modifiers == Qt::NoModifier;
}

bool isForEditorPane(KeyState const& state) {
    return state.cellEditing && state.editorPaneShown && state.paneTakesKeys;
}

/// Typing starts an edit whatever is being edited already.
bool isTyping(QKeyEvent const& event) {
    Qt::KeyboardModifiers const modifiers = event.modifiers();
    bool const typing =
        modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier || modifiers == Qt::KeypadModifier;
    return typing && isTextKey(event.key()) && bringsCharacter(event) && !isInputMethodKey(event);
}

/// A character entered by its number, with Alt held.
bool isAltDigit(QKeyEvent const& event) {
    return event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9 && event.modifiers().testFlag(Qt::AltModifier);
}

} // namespace

KeyDecision decideKey(QKeyEvent const& event, KeyState const& state) {
    if (state.dead)
        return {KeyAction::Swallow};
    if (isPlainEnter(event))
        return {isForEditorPane(state) ? KeyAction::Ignore : KeyAction::NextRow};
    if (auto const direction = arrowDirection(event.key())) {
        if (event.modifiers() == Qt::NoModifier)
            return {state.editing ? KeyAction::Ignore : KeyAction::Move, *direction};
        if (event.modifiers() == Qt::KeypadModifier)
            return {state.editing ? KeyAction::Ignore : KeyAction::Scroll, *direction};
    }
    // An edit that a key could start anew from within itself would go on doing so.
    if (isTyping(event))
        return {state.leftByEditor ? KeyAction::Swallow : KeyAction::StartEdit};
    if (isAltDigit(event) && bringsCharacter(event))
        return {state.cellEditorShown || state.leftByEditor ? KeyAction::Swallow : KeyAction::StartEdit};
    if (isFunctionKey(event.key()))
        return {KeyAction::Swallow};
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return {KeyAction::Ignore};
    return {KeyAction::PassToBase};
}

KeyDecision decideTab(QKeyEvent const& event, KeyState const& state) {
    bool const forward = event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier;
    if (!forward && event.key() != Qt::Key_Backtab)
        return {KeyAction::PassToBase};
    if (isForEditorPane(state))
        return {KeyAction::Ignore};
    return {forward ? KeyAction::NextColumn : KeyAction::PreviousColumn};
}
