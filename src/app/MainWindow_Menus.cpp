// The menu bar, made from the command table.

#include "app/MainWindow.h"
#include "commands/HandlerName.h"
#include "commands/Menus.h"

#include <QMenuBar>

namespace {

/// Whether the window can carry the command out.
bool hasHandler(QString const& command) {
    QByteArray const slot = commandHandlerName(command).toLatin1() + "()";
    return MainWindow::staticMetaObject.indexOfSlot(slot.constData()) >= 0;
}

} // namespace

void MainWindow::setupMenus() {
    for (Command const& command : commands.sorted()) {
        if (hasHandler(command.name)) {
            handledActions.insert(command.name, command.action);
        }
    }
    for (MenuItem const& item : Menus::menuBar()) {
        auto* const menu = new QMenu(item.title, this);
        addToMenu(*menu, item.items);
        if (menu->isEmpty()) {
            delete menu;
        } else {
            menuBar()->addMenu(menu);
        }
    }
    for (QString const& name : Menus::commandsWithoutMenu()) {
        if (QAction* const action = handledActions.value(name)) {
            addAction(action);
        }
    }
    menuBar()->setAccessibleName(tr("Menu bar"));
}

// A menu shows what can be done: a command without a handler is left out, and so is a menu without a command.
void MainWindow::addToMenu(QMenu& menu, std::vector<MenuItem> const& items) {
    for (MenuItem const& item : items) {
        switch (item.kind) {
        case MenuItem::Kind::Separator: menu.addSeparator(); break;
        case MenuItem::Kind::Command:
            if (QAction* const action = handledActions.value(item.name)) {
                menu.addAction(action);
            }
            break;
        case MenuItem::Kind::Menu: {
            auto* const submenu = new QMenu(item.title, &menu);
            addToMenu(*submenu, item.items);
            if (submenu->isEmpty()) {
                delete submenu;
            } else {
                menu.addMenu(submenu);
            }
            break;
        }
        }
    }
}
