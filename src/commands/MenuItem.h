#pragma once

#include <QString>

#include <vector>

/// One line of a menu, with all that stands below it.
struct MenuItem {
    enum class Kind { Command, Menu, Separator };

    Kind kind = Kind::Separator;
    QString name;  ///< of a command its name, of a menu its path, such as "Data/Case"
    QString title; ///< of a menu, with "&" before the letter that picks it
    std::vector<MenuItem> items = {};
};
