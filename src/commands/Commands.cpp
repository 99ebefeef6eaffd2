#include "commands/Commands.h"

#include "commands/HandlerName.h"
#include "commands/ShortcutGrammar.h"
#include "commands/table/CommandTable.h"

#include <QAction>
#include <QMetaMethod>
#include <QObject>
#include <QSet>

#include <algorithm>

namespace {

void connectHandler(Command const& command, QObject* target) {
    static QMetaMethod const triggered = QMetaMethod::fromSignal(&QAction::triggered);
    QByteArray const handler = commandHandlerName(command.name).toLatin1() + "()";
    QMetaObject const* const targetClass = target->metaObject();
    int const index = targetClass->indexOfMethod(handler.constData());
    if (index >= 0)
        QObject::connect(command.action, triggered, target, targetClass->method(index));
}

Command makeCommand(CommandRow const& row, char const* menu, QObject* parent) {
    QString const text = QString::fromLatin1(row.text);
    Command command;
    command.name = QString(text).remove(QLatin1Char('&'));
    command.menuPath = QString::fromLatin1(menu);
    command.scope = row.scope;
    command.requiredContext = row.required;
    command.excludedContext = row.excluded;
    command.defaultShortcut = QString::fromLatin1(row.shortcut);
    command.setting = row.setting;
    command.action = new QAction(row.menuText ? QString::fromLatin1(row.menuText) : text, parent);
    command.setShortcut(command.defaultShortcut);
    return command;
}

} // namespace

void Commands::populate(QObject* parent) {
    clear();
    if (!parent)
        ownerOfActions = std::make_shared<QObject>();
    QObject* const owner = parent ? parent : ownerOfActions.get();
    for (CommandGroup const& group : CommandTable::allGroups()) {
        for (CommandRow const& row : group.rows) {
            commands.push_back(makeCommand(row, group.menu, owner));
            if (parent)
                connectHandler(commands.back(), parent);
        }
    }
    std::sort(commands.begin(), commands.end(), sortCommandByName);
    shareEnterKeys();
}

void Commands::clear() {
    commands.clear();
    ownerOfActions.reset();
}

std::vector<Command>::const_iterator Commands::position(QString const& name) const {
    auto const found = std::lower_bound(commands.begin(), commands.end(), name,
                                        [](Command const& command, QString const& key) { return command.name < key; });
    return found != commands.end() && found->name == name ? found : commands.end();
}

Command const* Commands::find(QString const& name) const {
    auto const found = position(name);
    return found != commands.end() ? &*found : nullptr;
}

bool Commands::setShortcut(QString const& name, QString const& text) {
    auto const found = position(name);
    if (found == commands.cend())
        return false;
    commands[static_cast<std::size_t>(found - commands.cbegin())].setShortcut(text);
    shareEnterKeys();
    return true;
}

void Commands::shareEnterKeys() const {
    QSet<QKeySequence> written;
    for (Command const& command : commands) {
        for (QKeySequence const& sequence : getKeySequenceList(command.shortcut))
            written.insert(sequence);
    }
    for (Command const& command : commands) {
        QList<QKeySequence> sequences = getKeySequenceList(command.shortcut);
        QList<QKeySequence> shared;
        for (QKeySequence const& sequence : sequences)
            shared += withReturnForEnter(sequence);
        shared.removeIf([&](QKeySequence const& sequence) { return written.contains(sequence); });
        sequences += shared;
        if (sequences != command.action->shortcuts())
            command.action->setShortcuts(sequences);
    }
}

void Commands::enableMatching(Context context) const {
    for (Command const& command : commands) {
        command.action->setEnabled(command.matchesContext(context));
    }
}
