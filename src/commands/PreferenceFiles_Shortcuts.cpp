#include "commands/Commands.h"
#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"
#include "model/TableModel.h"

#include <QHash>

namespace {

enum Title : std::size_t { Name, UserShortcut };

std::vector<QString> titles() {
    return {"Command", "User Shortcut"};
}

QStringList instructions() {
    return {"Place your desired shortcuts in the \"User Shortcut\" column.",
            "If \"User Shortcut\" is blank or invalid,",
            "the default shortcut will be used.",
            "To have no shortcuts for a command, use \"(none)\".",
            "If you want multiple shortcuts for one command,",
            "separate them with a bar (|).",
            "If you use the same shortcut for multiple commands,",
            "it may not work for any of them.",
            "The \"Default Shortcut\" column is for informative",
            "purposes only. Changing it won't make any difference."};
}

constexpr int numCols = 3;

QString noShortcut() {
    return QStringLiteral("(none)");
}

QString userText(Command const& command) {
    if (command.shortcut == command.defaultShortcut) {
        return QString();
    }
    return command.shortcut.isEmpty() ? noShortcut() : command.shortcut;
}

} // namespace

void PreferenceFiles::makeShortcutsTable(TableModel& model, Commands const& commands) {
    QStringList const above = instructions();
    int row = int(above.size());
    setSize(model, row + 2 + int(commands.sorted().size()), numCols);
    writeColumn(model, 0, 0, above);
    writeRow(model, row++, numCols - 1, {"!!! Make changes below !!!"});
    writeRow(model, row++, 0, {"Command", "Default Shortcut", "User Shortcut"});
    for (Command const& command : commands.sorted()) {
        QString const& shortcut = command.defaultShortcut;
        writeRow(model, row++, 0, {command.name, shortcut.isEmpty() ? noShortcut() : shortcut, userText(command)});
    }
}

bool PreferenceFiles::makeShortcutsFile() {
    Commands commands;
    commands.populate(nullptr);
    return makeShortcutsFile(commands);
}

bool PreferenceFiles::makeShortcutsFile(Commands const& commands) {
    TableModel model;
    makeShortcutsTable(model, commands);
    return save(model, Utilities::getShortcutsFilepath());
}

PreferenceFiles::FileTest PreferenceFiles::examineShortcutsFile() {
    return examine(Utilities::getShortcutsFilepath(), titles());
}

bool PreferenceFiles::testShortcutsFileValidity() {
    return examineShortcutsFile() == FileTest::Sound;
}

bool PreferenceFiles::updateShortcutsFile(Commands& commands) {
    TableModel model;
    if (!load(model, Utilities::getShortcutsFilepath())) {
        return false;
    }
    addUserShortcuts(model, commands);
    return makeShortcutsFile(commands);
}

void PreferenceFiles::addUserShortcuts(TableModel const& model, Commands& commands) {
    PreferenceTable const table(model, titles());
    QHash<QString, QString> userShortcuts;
    for (int row = table.firstRow(); row < table.endRow(); ++row) {
        userShortcuts.insert(table.text(row, Name), table.text(row, UserShortcut));
    }
    for (std::size_t i = 0; i < commands.sorted().size(); ++i) {
        Command const& command = commands.sorted()[i];
        QString wanted = userShortcuts.value(command.name);
        if (wanted.isEmpty()) {
            wanted = command.defaultShortcut;
        } else if (wanted == noShortcut()) {
            wanted.clear();
        }
        if (wanted != command.shortcut) {
            commands.setShortcut(command.name, wanted);
        }
    }
}
