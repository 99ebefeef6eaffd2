#include "commands/Menus.h"

#include "commands/table/CommandTable.h"

namespace {

struct MenuRow {
    char const* parent; ///< the path of the menu that shows this one; empty for the menu bar
    char const* title;
    char const* after = ""; ///< the name of the command that it stands behind; empty for the top of its parent
};

constexpr MenuRow menuRows[] = {
    {"", "&File"},
    {"", "&Edit"},
    {"", "&Data"},
    {"", "&Selection"},
    {"", "Fi&nd"},
    {"", "&View"},
    {"", "&Tools"},
    {"", "&Go To"},
    {"", "&Preferences"},
    {"", "Contact &Us"},
    {"", "&Help"},
    {"File", "Open &Recent File", "Open Recent File"},
    {"File", "Reload", "Save All Files"},
    {"File", "Save Options", "Save All Files"},
    {"File", "File Location Information", "Open File in Text Editor"},
    {"Data", "&Move"},
    {"Data", "&Insert"},
    {"Data", "&Transpose"},
    {"Data", "&Case"},
    {"Data", "&Format"},
    {"Data", "&Numbers"},
    {"Data", "&Delete"},
    {"Data", "&Sort"},
    {"Data", "Du&plicate"},
    {"Data", "&Multi-cell"},
    {"Data", "St&ring Manipulation"},
    {"Data", "Fi&lter"},
    {"Data", "&Hide/Show"},
    {"View", "&Table Size"},
    {"View", "&Grid Size"},
    {"View", "&Headers"},
};

QString withoutMnemonic(char const* text) {
    return QString::fromLatin1(text).remove(QLatin1Char('&'));
}

std::vector<MenuItem> itemsOf(QString const& path);

/// Appends the submenus of `parent` that stand behind the command `after`.
void appendMenus(std::vector<MenuItem>& items, QString const& parent, QString const& after) {
    for (MenuRow const& row : menuRows) {
        if (parent != QLatin1String(row.parent) || after != QLatin1String(row.after))
            continue;
        QString const name = withoutMnemonic(row.title);
        QString const path = parent.isEmpty() ? name : parent + QLatin1Char('/') + name;
        items.push_back({MenuItem::Kind::Menu, path, QString::fromLatin1(row.title), itemsOf(path)});
    }
}

std::vector<MenuItem> itemsOf(QString const& path) {
    std::vector<MenuItem> items;
    appendMenus(items, path, QString());
    for (CommandGroup const& group : CommandTable::allGroups()) {
        if (path != QLatin1String(group.menu))
            continue;
        if (!items.empty())
            items.push_back({MenuItem::Kind::Separator, {}, {}});
        for (CommandRow const& row : group.rows) {
            QString const name = withoutMnemonic(row.text);
            items.push_back({MenuItem::Kind::Command, name, {}});
            appendMenus(items, path, name);
        }
    }
    return items;
}

} // namespace

std::vector<MenuItem> Menus::menuBar() {
    std::vector<MenuItem> menus;
    appendMenus(menus, QString(), QString());
    return menus;
}

QStringList Menus::commandsWithoutMenu() {
    QStringList names;
    for (CommandGroup const& group : CommandTable::unlistedCommands()) {
        for (CommandRow const& row : group.rows) {
            names += withoutMnemonic(row.text);
        }
    }
    return names;
}
