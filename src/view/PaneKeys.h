#pragma once

class QKeyEvent;

/// What a key does in the editor pane.
enum class PaneKeyAction {
    Base,           ///< as in any text editor
    InsertTab,      ///< a tab character
    LineBreak,      ///< a line break, whatever the modifiers
    NextRow,        ///< ends the edit and moves on
    NextColumn,     ///< the same
    PreviousColumn, ///< the same
    Finish,         ///< ends the edit
};

/// `consumeNavigation` keeps Tab and Enter in the text instead of letting them move through the table.
PaneKeyAction paneKeyAction(QKeyEvent const& event, bool consumeNavigation);
