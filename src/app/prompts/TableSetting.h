#pragma once

#include "commands/SettingType.h"

class TableView;

/// A number that each table has for itself, while the setting of that name is only what new tables begin with.
struct TableSetting {
    SettingType type;
    int (*get)(TableView const& table);
    void (*set)(TableView& table, int value);

    /// Null for a setting that is no number of a table.
    static TableSetting const* find(SettingType type);
};
