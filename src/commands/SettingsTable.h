#pragma once

#include "commands/NumberRange.h"
#include "commands/ScopeType.h"
#include "commands/SettingDataType.h"
#include "commands/SettingType.h"

#include <span>

/// One setting as the program is built with it.
struct SettingRow {
    SettingType type;
    char const* name;
    ScopeType scope;
    SettingDataType dataType;
    char const* defaultText; ///< as the settings file has it
    bool inFile = true;
    char const* trueWord = nullptr; ///< what the launcher shows for true and false
    char const* falseWord = nullptr;
    NumberRange range = {}; ///< of a setting that is a number
};

/// All settings, in the order of SettingType.
std::span<SettingRow const> settingsTable();
