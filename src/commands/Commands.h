#pragma once

#include "commands/Command.h"

#include <QString>

#include <memory>
#include <vector>

class QObject;

/// All commands of one window, sorted by name. A value: widgets keep a copy for their context menus, and all copies
/// share the actions.
class Commands {
public:
    /// Makes all commands with their default shortcuts. Their actions become children of `parent` and trigger its slots
    /// by the names that commandHandlerName gives; a command without such a slot does nothing. With a null `parent` no
    /// handler is connected, and the actions live as long as a copy of this object.
    void populate(QObject* parent);

    /// Forgets all commands; actions of a parent stay with it.
    void clear();

    /// The command of that exact name, or null.
    Command const* find(QString const& name) const;

    std::vector<Command> const& sorted() const { return commands; }

    /// Puts the shortcut `text` in force for the command `name`; false if there is no such command. "Enter" is then
    /// both keys of that name, but the main keyboard's is left to a command that has it as "return" in the same
    /// presses.
    bool setShortcut(QString const& name, QString const& text);

    /// Enables the actions of the commands that match the context, and disables the others.
    void enableMatching(Context context) const;

private:
    std::vector<Command>::const_iterator position(QString const& name) const;
    void shareEnterKeys() const;

    std::vector<Command> commands;
    std::shared_ptr<QObject> ownerOfActions; ///< only for actions without a parent
};
