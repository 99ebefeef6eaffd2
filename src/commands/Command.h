#pragma once

#include "commands/ScopeType.h"
#include "commands/SettingType.h"
#include "core/Context.h"

#include <QString>

class QAction;

/// One action of the user, as menus, shortcuts, context menus and the command launcher reach it. A plain value; copies
/// share the action.
struct Command {
    QString name;     ///< the identity: shown in the launcher, key in the file of shortcuts
    QString menuPath; ///< such as "Data/Case"; empty for a command that no menu shows
    ScopeType scope = ScopeType::Command;
    int shownInLauncher = 1;                 ///< 0 keeps the command out of the launcher
    Context requiredContext = Context::Any;  ///< bits that must all be present, or Any
    Context excludedContext = Context::None; ///< bits of which none may be present
    QString shortcut;                        ///< the one in force, in the grammar of getKeySequenceList
    QString defaultShortcut;
    QAction* action = nullptr;
    SettingType setting = SettingType::None;

    /// Whether the command can be used in the context `current`.
    bool matchesContext(Context current) const {
        return (requiredContext == Context::Any || (current & requiredContext) == requiredContext) &&
               !hasAnyContext(current, excludedContext);
    }

    /// Puts another shortcut in force, on the action too. Text that is no shortcut gives none.
    void setShortcut(QString const& text);
};

/// Whether `a` stands before `b` by name, in a case-sensitive comparison.
bool sortCommandByName(Command const& a, Command const& b);
