#pragma once

#include "commands/MenuItem.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The menus of a window as data, from which it makes its widgets.
namespace Menus {

/// The menus of the menu bar, in order. "File/Open Recent File" is without items: the window fills it.
std::vector<MenuItem> menuBar();

/// The names of the commands that no menu shows; their actions belong to the window itself.
QStringList commandsWithoutMenu();

} // namespace Menus
