#include "view/PaneKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace {

enum class With { Nothing, NothingOrKeypad, Ctrl, Anything };

struct PaneKey {
    Qt::Key key;
    With modifiers;
    PaneKeyAction leaving;   ///< keys move through the table
    PaneKeyAction consuming; ///< keys stay in the text
};

/// The first row that matches counts; keys without a row are the base's.
constexpr PaneKey paneKeys[] = {
    {Qt::Key_Tab, With::Nothing, PaneKeyAction::NextColumn, PaneKeyAction::Base},
    {Qt::Key_Tab, With::Ctrl, PaneKeyAction::InsertTab, PaneKeyAction::Base},
    {Qt::Key_Backtab, With::Anything, PaneKeyAction::PreviousColumn, PaneKeyAction::Base},
    {Qt::Key_Return, With::Nothing, PaneKeyAction::NextRow, PaneKeyAction::Base},
    {Qt::Key_Return, With::Ctrl, PaneKeyAction::LineBreak, PaneKeyAction::Base},
    {Qt::Key_Enter, With::NothingOrKeypad, PaneKeyAction::NextRow, PaneKeyAction::Base},
    {Qt::Key_Enter, With::Anything, PaneKeyAction::LineBreak, PaneKeyAction::Base},
    {Qt::Key_Escape, With::Nothing, PaneKeyAction::Finish, PaneKeyAction::Finish},
};

bool matches(With with, Qt::KeyboardModifiers modifiers) {
    switch (with) {
    case With::Nothing: return modifiers == Qt::NoModifier;
    case With::NothingOrKeypad: return modifiers == Qt::NoModifier || modifiers == Qt::KeypadModifier;
    case With::Ctrl: return modifiers == Qt::ControlModifier;
    case With::Anything: break;
    }
    return true;
}

} // namespace

PaneKeyAction paneKeyAction(QKeyEvent const& event, bool consumeNavigation) {
    auto const row = std::find_if(std::begin(paneKeys), std::end(paneKeys), [&](PaneKey const& entry) {
        return entry.key == event.key() && matches(entry.modifiers, event.modifiers());
    });
    if (row == std::end(paneKeys))
        return PaneKeyAction::Base;
    return consumeNavigation ? row->consuming : row->leaving;
}
