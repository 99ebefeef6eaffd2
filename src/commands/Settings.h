#pragma once

#include "appearance/Theme.h"
#include "commands/RefreshBehavior.h"
#include "commands/Setting.h"
#include "core/Enumerations.h"
#include "core/UuidType.h"

#include <QFont>
#include <QString>

#include <vector>

/// All that the user can set, with the values in force. A value: each window has a copy, and each table one of its own
/// for the values of table scope. A new object holds the defaults.
class Settings {
public:
    Settings();

    /// All settings, sorted by name.
    std::vector<Setting> const& sorted() const { return settings; }
    bool contains(QString const& name) const { return find(name) != nullptr; }
    /// The first setting of that exact name, or null.
    Setting const* find(QString const& name) const;
    Setting const& get(SettingType type) const;

    // The value, converted as QVariant does where the setting is of another type.
    bool getValueBool(SettingType type) const;
    /// Within the setting's range: the value itself may be a number beyond it that the settings file holds.
    int getValueInt(SettingType type) const;
    float getValueFloat(SettingType type) const;
    QString getValueString(SettingType type) const;
    RefreshBehavior getValueRefreshBehavior(SettingType type) const;
    LineEndingType getValueLineEnding(SettingType type) const;
    EncodingType getValueEncoding(SettingType type) const;
    ParsingStandard getValueParsingStandard(SettingType type) const;
    UuidType getUuidType() const;
    /// The text size is not part of it.
    QFont getFont() const;
    /// The dark theme if there is none of the name that the setting holds.
    Theme getTheme() const;
    bool isThemeKnown() const;

    void setValue(SettingType type, bool value);
    void setValue(SettingType type, int value);
    void setValue(SettingType type, QString const& value);
    void setValue(SettingType type, RefreshBehavior value);
    void setValue(SettingType type, LineEndingType value);
    void setValue(SettingType type, EncodingType value);
    void setValue(SettingType type, ParsingStandard value);
    void setValue(SettingType type, UuidType value);
    void setValue(SettingType type, char const* value) = delete; ///< would be taken for a bool
    void toggleBoolValue(SettingType type);
    /// Takes the value of a text as the settings file has it; an invalid one changes nothing. False for a name that is
    /// no setting's.
    bool setFromString(QString const& name, QString const& text);

    /// The values that rows of the settings file write become the defaults.
    void resetValuesInFile();
    /// Takes one value of another object.
    void takeValue(SettingType type, Settings const& other);
    /// Takes the values of global scope of another object.
    void takeGlobalValues(Settings const& other);

    /// The value as the settings file writes it.
    QString convertValueToStringForFile(SettingType type) const;
    QString convertDefaultValueToStringForFile(SettingType type) const;
    /// Whether the value is the default, so that the settings file need not hold it. Names of themes are the same in
    /// any case of letters.
    bool isDefault(SettingType type) const;
    /// The word for the value that the launcher shows.
    QString displayText(SettingType type) const;

    static QString convertSettingDataTypeToString(SettingDataType type);

private:
    Setting& record(SettingType type);

    std::vector<Setting> settings;
};
