#pragma once

#include <Qt>

enum class PressAction {
    Select, ///< begin a new selection at the cell
    AddToSelection,
    TakeOut,     ///< take the cell out of the selection
    Extend,      ///< select from the main cell to the cell
    BaseHandler, ///< only Qt's own handling
};

/// What a mouse press in the grid does.
PressAction decidePress(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
