#pragma once

#include <QHash>
#include <QString>

#include <span>

class QAction;
class QMenu;

/// The actions of all commands by the name of their command.
using CommandActions = QHash<QString, QAction*>;

/// The entries of a context menu: names of commands, and an empty name for a separator.
using ContextMenuEntries = std::span<char const* const>;

/// The menu of a cell; the two kinds of selection offer different things.
ContextMenuEntries cellMenuEntries(bool multiCellSelection);
/// What both kinds have at the end.
ContextMenuEntries commonCellMenuEntries();
ContextMenuEntries headerMenuEntries(Qt::Orientation orientation);

/// Appends the actions of the entries, which carry their shortcuts and their enabled state. Names without an action are
/// left out, and a separator that would separate nothing is too.
void appendToMenu(QMenu& menu, ContextMenuEntries entries, CommandActions const& actions);

/// From now on, while the menu is open, nothing from outside turns to another table: its entries act on the one that
/// they were opened on. See ModalHold.
void holdWhileShown(QMenu& menu);
