#include "commands/Settings.h"

#include "commands/SettingValue.h"
#include "commands/SettingsTable.h"
#include "core/DelimiterUtilities.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr auto numSettings = static_cast<std::size_t>(SettingType::None);

QVariant defaultOf(SettingRow const& row) {
    QVariant value = SettingValue::initial(row.dataType);
    SettingValue::takeText(row.dataType, QString::fromLatin1(row.defaultText), value);
    return value;
}

bool isNumber(SettingDataType type) {
    return type == SettingDataType::Integer || type == SettingDataType::IntegerFromZero ||
           type == SettingDataType::IntegerFromOne;
}

int numberOf(Setting const& setting) {
    int const number = setting.value.toInt();
    return isNumber(setting.dataType) ? setting.range.clamp(number) : number;
}

QString displayText(Setting const& setting) {
    if (isNumber(setting.dataType)) {
        return QString::number(numberOf(setting));
    }
    if (setting.type == SettingType::DelimiterLoad || setting.type == SettingType::DelimiterSave) {
        return Utilities::convertDelimiterFromActualToShortReadable(setting.value.toString());
    }
    return setting.dataType == SettingDataType::Theme ? Theme(setting.value.toString()).getName()
                                                      : SettingValue::toText(setting.dataType, setting.value);
}

Setting makeSetting(SettingRow const& row) {
    Setting setting;
    setting.type = row.type;
    setting.name = QString::fromLatin1(row.name);
    setting.defaultValue = defaultOf(row);
    setting.value = setting.defaultValue;
    setting.scope = row.scope;
    setting.dataType = row.dataType;
    setting.inFile = row.inFile;
    setting.range = row.range;
    setting.fromString = [](QString const& text, Setting& target) {
        SettingValue::takeText(target.dataType, text, target.value);
    };
    if (row.trueWord != nullptr) {
        setting.toString = [words = std::pair(row.trueWord, row.falseWord)](Setting const& source) {
            return QString::fromLatin1(source.value.toBool() ? words.first : words.second);
        };
    } else {
        setting.toString = displayText;
    }
    return setting;
}

std::vector<Setting> makeDefaults() {
    std::vector<Setting> settings;
    for (SettingRow const& row : settingsTable()) {
        settings.push_back(makeSetting(row));
    }
    std::stable_sort(settings.begin(), settings.end(), sortSettingByName);
    return settings;
}

std::vector<Setting> const& defaults() {
    static std::vector<Setting> const settings = makeDefaults();
    return settings;
}

/// Where the setting stands in the order of names, which is the same in all objects.
std::size_t positionOf(SettingType type) {
    static std::array<std::size_t, numSettings> const positions = [] {
        std::array<std::size_t, numSettings> made{};
        for (std::size_t i = 0; i < defaults().size(); ++i) {
            made.at(static_cast<std::size_t>(defaults()[i].type)) = i;
        }
        return made;
    }();
    return positions.at(static_cast<std::size_t>(type));
}

} // namespace

bool sortSettingByName(Setting const& a, Setting const& b) {
    return a.name < b.name;
}

Settings::Settings() : settings(defaults()) {}

Setting const* Settings::find(QString const& name) const {
    auto const found =
        std::lower_bound(settings.begin(), settings.end(), name,
                         [](Setting const& setting, QString const& wanted) { return setting.name < wanted; });
    return found != settings.end() && found->name == name ? &*found : nullptr;
}

Setting const& Settings::get(SettingType type) const {
    return settings[positionOf(type)];
}

Setting& Settings::record(SettingType type) {
    return settings[positionOf(type)];
}

bool Settings::getValueBool(SettingType type) const {
    return get(type).value.toBool();
}

int Settings::getValueInt(SettingType type) const {
    return numberOf(get(type));
}

float Settings::getValueFloat(SettingType type) const {
    return get(type).value.toFloat();
}

QString Settings::getValueString(SettingType type) const {
    return get(type).value.toString();
}

RefreshBehavior Settings::getValueRefreshBehavior(SettingType type) const {
    return static_cast<RefreshBehavior>(getValueInt(type));
}

LineEndingType Settings::getValueLineEnding(SettingType type) const {
    return static_cast<LineEndingType>(getValueInt(type));
}

EncodingType Settings::getValueEncoding(SettingType type) const {
    return static_cast<EncodingType>(getValueInt(type));
}

ParsingStandard Settings::getValueParsingStandard(SettingType type) const {
    return static_cast<ParsingStandard>(getValueInt(type));
}

UuidType Settings::getUuidType() const {
    return static_cast<UuidType>(getValueInt(SettingType::UUIDType));
}

QFont Settings::getFont() const {
    return QFont(getValueString(SettingType::Font));
}

Theme Settings::getTheme() const {
    return Theme::convertStringToTheme(getValueString(SettingType::Theme));
}

bool Settings::isThemeKnown() const {
    return Theme::getNamesList().contains(getValueString(SettingType::Theme), Qt::CaseInsensitive);
}

void Settings::setValue(SettingType type, bool value) {
    record(type).value = value;
}

void Settings::setValue(SettingType type, int value) {
    record(type).value = value;
}

void Settings::setValue(SettingType type, QString const& value) {
    record(type).value = value;
}

void Settings::setValue(SettingType type, RefreshBehavior value) {
    setValue(type, static_cast<int>(value));
}

void Settings::setValue(SettingType type, LineEndingType value) {
    setValue(type, static_cast<int>(value));
}

void Settings::setValue(SettingType type, EncodingType value) {
    setValue(type, static_cast<int>(value));
}

void Settings::setValue(SettingType type, ParsingStandard value) {
    setValue(type, static_cast<int>(value));
}

void Settings::setValue(SettingType type, UuidType value) {
    setValue(type, static_cast<int>(value));
}

void Settings::toggleBoolValue(SettingType type) {
    setValue(type, !getValueBool(type));
}

bool Settings::setFromString(QString const& name, QString const& text) {
    Setting const* const setting = find(name);
    if (setting == nullptr) {
        return false;
    }
    Setting& target = record(setting->type);
    target.fromString(text, target);
    return true;
}

void Settings::resetValuesInFile() {
    for (Setting& setting : settings) {
        if (setting.inFile) {
            setting.value = setting.defaultValue;
        }
    }
}

void Settings::takeValue(SettingType type, Settings const& other) {
    record(type).value = other.get(type).value;
}

void Settings::takeGlobalValues(Settings const& other) {
    for (std::size_t i = 0; i < settings.size(); ++i) {
        if (settings[i].scope == ScopeType::Global) {
            settings[i].value = other.settings[i].value;
        }
    }
}

QString Settings::convertValueToStringForFile(SettingType type) const {
    Setting const& setting = get(type);
    return SettingValue::toText(setting.dataType, setting.value);
}

QString Settings::convertDefaultValueToStringForFile(SettingType type) const {
    Setting const& setting = get(type);
    return SettingValue::toText(setting.dataType, setting.defaultValue);
}

bool Settings::isDefault(SettingType type) const {
    Qt::CaseSensitivity const matters =
        get(type).dataType == SettingDataType::Theme ? Qt::CaseInsensitive : Qt::CaseSensitive;
    return convertValueToStringForFile(type).compare(convertDefaultValueToStringForFile(type), matters) == 0;
}

QString Settings::displayText(SettingType type) const {
    Setting const& setting = get(type);
    return setting.toString(setting);
}

QString Settings::convertSettingDataTypeToString(SettingDataType type) {
    return SettingValue::nameOf(type);
}
