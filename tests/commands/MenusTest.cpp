#include "commands/Menus.h"

#include "commands/Commands.h"

#include <QMap>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Kind = MenuItem::Kind;

/// Each line of a menu: a command by its name, a menu as "title >", a separator as "-".
QStringList linesOf(std::vector<MenuItem> const& items) {
    QStringList lines;
    for (MenuItem const& item : items) {
        switch (item.kind) {
        case Kind::Command: lines += item.name; break;
        case Kind::Menu: lines += item.title + " >"; break;
        case Kind::Separator: lines += "-"; break;
        }
    }
    return lines;
}

std::vector<MenuItem> const& itemsOf(std::vector<MenuItem> const& menus, QString const& path) {
    for (MenuItem const& menu : menus) {
        if (menu.kind == Kind::Menu && menu.name == path)
            return menu.items;
    }
    throw std::out_of_range(path.toStdString());
}

/// The menu that shows each command, of `items` and all below.
void collect(std::vector<MenuItem> const& items, QString const& path, QMultiMap<QString, QString>& menuOfCommand) {
    for (MenuItem const& item : items) {
        if (item.kind == Kind::Command)
            menuOfCommand.insert(item.name, path);
        else
            collect(item.items, item.name, menuOfCommand);
    }
}

void expectPlainCommandsFirst(Commands const& commands, MenuItem const& menu) {
    bool settings = false;
    for (MenuItem const& item : menu.items) {
        if (item.kind == Kind::Command) {
            bool const setting = commands.find(item.name)->setting != SettingType::None;
            EXPECT_TRUE(setting || !settings || item.name == "Exit") << qPrintable(item.name);
            settings = settings || setting;
        } else if (item.kind == Kind::Menu) {
            expectPlainCommandsFirst(commands, item);
        }
    }
}

TEST(Menus, barAndSubmenusAreInOrder) {
    auto const bar = Menus::menuBar();
    EXPECT_EQ(linesOf(bar), QStringList({"&File >", "&Edit >", "&Data >", "&Selection >", "Fi&nd >", "&View >",
                                         "&Tools >", "&Go To >", "&Preferences >", "Contact &Us >", "&Help >"}));
    auto const submenusOf = [&](char const* path) { return linesOf(itemsOf(bar, path)).filter(" >"); };
    EXPECT_EQ(submenusOf("File"),
              QStringList({"Open &Recent File >", "Reload >", "Save Options >", "File Location Information >"}));
    EXPECT_EQ(submenusOf("Data"), QStringList({"&Move >", "&Insert >", "&Transpose >", "&Case >", "&Format >",
                                               "&Numbers >", "&Delete >", "&Sort >", "Du&plicate >", "&Multi-cell >",
                                               "St&ring Manipulation >", "Fi&lter >", "&Hide/Show >"}));
    EXPECT_EQ(submenusOf("View"), QStringList({"&Table Size >", "&Grid Size >", "&Headers >"}));
    EXPECT_TRUE(itemsOf(itemsOf(bar, "File"), "File/Open Recent File").empty());
}

TEST(Menus, separatorsStandBetweenKindsOnly) {
    auto const bar = Menus::menuBar();
    EXPECT_EQ(linesOf(itemsOf(bar, "Edit")).mid(0, 4), QStringList({"Undo", "Redo", "-", "Cut Cell(s)"}));
    for (MenuItem const& menu : bar) {
        QString const lines = linesOf(menu.items).join('\n');
        EXPECT_FALSE(lines.contains("-\n-") || lines.startsWith("-\n") || lines.endsWith("\n-")) << qPrintable(lines);
    }
    EXPECT_EQ(linesOf(itemsOf(bar, "File")).last(), "Exit");
}

TEST(Menus, everyCommandStandsOnceInItsMenu) {
    Commands commands;
    commands.populate(nullptr);
    auto const bar = Menus::menuBar();
    QMultiMap<QString, QString> menuOfCommand;
    collect(bar, QString(), menuOfCommand);
    for (QString const& name : Menus::commandsWithoutMenu())
        menuOfCommand.insert(name, QString());
    EXPECT_EQ(static_cast<std::size_t>(menuOfCommand.size()), commands.sorted().size());
    for (Command const& command : commands.sorted())
        EXPECT_EQ(menuOfCommand.values(command.name), QStringList(command.menuPath)) << qPrintable(command.name);
    for (MenuItem const& menu : bar)
        expectPlainCommandsFirst(commands, menu);
}

} // namespace
