#pragma once

#include "commands/NumberRange.h"
#include "commands/ScopeType.h"
#include "commands/SettingDataType.h"
#include "commands/SettingType.h"

#include <QString>
#include <QVariant>

#include <functional>

/// One thing that the user can set.
struct Setting {
    SettingType type = SettingType::None;
    QString name; ///< shown, and the key in the settings file
    QVariant value;
    QVariant defaultValue;
    ScopeType scope = ScopeType::Global;
    SettingDataType dataType = SettingDataType::String;
    NumberRange range;                                        ///< of the values of a number
    bool inFile = true;                                       ///< whether the settings file has a row for it
    std::function<void(QString const&, Setting&)> fromString; ///< takes the value of a text if that is valid
    std::function<QString(Setting const&)> toString;          ///< the word for the value that the launcher shows
};

/// Whether `a` stands before `b` by name, in a case-sensitive comparison.
bool sortSettingByName(Setting const& a, Setting const& b);
