#pragma once

#include "core/Enumerations.h"

#include <Qt>
#include <QtGlobal>

class QKeyEvent;

/// What a key press is judged by besides the event.
struct KeyState {
    bool dead = false;            ///< a load is running or a mouse button is dragging a selection
    bool cellEditing = false;     ///< the state of the window says that a cell is being edited
    bool editing = false;         ///< an edit is open in this view
    bool editorPaneShown = false; ///< the editor pane is open
    bool paneTakesKeys = false;   ///< the editor pane keeps Enter and Tab for itself
    bool cellEditorShown = false; ///< a cell editor exists and is visible
    bool leftByEditor = false;    ///< the open editor got the key first and had no use for it
};

enum class KeyAction {
    Swallow,        ///< accepted, nothing is done
    Ignore,         ///< left to whoever comes next: the window's shortcuts or the open editor
    NextRow,        ///< to the next row, under the column where the record began
    NextColumn,     ///< to the right, remembering where the record began
    PreviousColumn, ///< to the left
    Move,           ///< the selection moves by one cell
    Scroll,         ///< the view scrolls and the selection stays
    StartEdit,      ///< the key begins an edit
    PassToBase,     ///< Qt's own handling
};

struct KeyDecision {
    KeyAction action = KeyAction::PassToBase;
    Direction direction = Direction::Up; ///< of Move and Scroll
};

/// What a key press does in the grid.
KeyDecision decideKey(QKeyEvent const& event, KeyState const& state);
/// The same for Tab and Backtab, which are to be judged before Qt moves the focus. PassToBase for all other keys.
KeyDecision decideTab(QKeyEvent const& event, KeyState const& state);
