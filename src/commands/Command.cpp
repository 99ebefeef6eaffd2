#include "commands/Command.h"

#include "commands/ShortcutGrammar.h"

#include <QAction>

void Command::setShortcut(QString const& text) {
    shortcut = text;
    action->setShortcuts(getKeySequenceList(text));
}

bool sortCommandByName(Command const& a, Command const& b) {
    return a.name < b.name;
}
