#pragma once

#include "commands/Setting.h"

class Settings;
class TableView;

/// What each table has for itself, while the setting of that name is only what new tables begin with.
struct TableSetting {
    SettingType type;
    QVariant (*get)(TableView const& table);
    void (*set)(TableView& table, int value) = nullptr; ///< of a number that is asked for

    /// Null for a setting of the whole program.
    static TableSetting const* find(SettingType type);
    /// The setting with the value that is in force now: the table's own for one of table scope, else the program's.
    static Setting present(SettingType type, Settings const& ofProgram, TableView const& table);
};
