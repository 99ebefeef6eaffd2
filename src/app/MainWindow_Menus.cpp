// The menu bar, made from the command table.

#include "app/MainWindow.h"
#include "app/MenuArrow.h"
#include "commands/Menus.h"
#include "view/ContextMenuEntries.h"

#include <QMenuBar>

void MainWindow::setupMenus() {
    for (Command const& command : commands.sorted()) {
        actions.insert(command.name, command.action);
    }
    menuBar()->clear();
    QFont const menuFont(QStringLiteral("Lucida Sans Unicode"), 10);
    menuBar()->setFont(menuFont);
    for (MenuItem const& item : Menus::menuBar()) {
        auto* const menu = menuBar()->addMenu(item.title);
        menu->setFont(menuFont);
        addToMenu(*menu, item.items);
        holdWhileShown(*menu);
    }
    for (QString const& name : Menus::commandsWithoutMenu()) {
        addAction(actions.value(name));
    }
    menuBar()->setAccessibleName(tr("Menu bar"));
    MenuArrow::tint(*menuBar(), theme.getTextColor());
}

void MainWindow::addToMenu(QMenu& menu, std::vector<MenuItem> const& items) {
    for (MenuItem const& item : items) {
        switch (item.kind) {
        case MenuItem::Kind::Separator: menu.addSeparator(); break;
        case MenuItem::Kind::Command: menu.addAction(actions.value(item.name)); break;
        case MenuItem::Kind::Menu: {
            auto* const submenu = menu.addMenu(item.title);
            submenu->setFont(menu.font());
            addToMenu(*submenu, item.items);
            submenu->menuAction()->setEnabled(!submenu->isEmpty());
            break;
        }
        }
    }
}
