#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "commands/Settings.h"
#include "core/PathUtilities.h"
#include "model/TableModel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

enum Title : std::size_t { Name, UserValue };

std::vector<QString> titles() {
    return {"Setting", "User Value"};
}

QStringList instructions() {
    return {"Place your desired setting in the \"User Value\" column.",
            "If \"User Value\" is blank or invalid, the default value will be used.",
            "The \"Type\" and \"Default Value\" columns are for informative",
            "purposes only. Changing them won't make any difference.",
            "Scope: Global applies immediately to the whole program.",
            "Table scope Settings are defaults for newly opened files."};
}

constexpr int numCols = 5;

} // namespace

void PreferenceFiles::makeSettingsTable(TableModel& model, Settings const& settings) {
    auto const& all = settings.sorted();
    auto const numRows = std::count_if(all.begin(), all.end(), [](Setting const& setting) { return setting.inFile; });
    QStringList const above = instructions();
    int row = int(above.size());
    setSize(model, row + 2 + int(numRows), numCols);
    writeColumn(model, 0, 0, above);
    writeRow(model, row++, numCols - 1, {"!!! Make changes below !!!"});
    writeRow(model, row++, 0, {"Setting", "Scope", "Type", "Default Value", "User Value"});
    for (Setting const& setting : all) {
        if (!setting.inFile) {
            continue;
        }
        QString const value = settings.convertValueToStringForFile(setting.type);
        QString const defaultValue = settings.convertDefaultValueToStringForFile(setting.type);
        bool const isDefault = value.toLower() == defaultValue.toLower();
        writeRow(model, row++, 0,
                 {setting.name, Utilities::convertScopeToString(setting.scope),
                  Settings::convertSettingDataTypeToString(setting.dataType), defaultValue,
                  isDefault ? QString() : value});
    }
}

bool PreferenceFiles::makeSettingsFile() {
    return makeSettingsFile(Settings());
}

bool PreferenceFiles::makeSettingsFile(Settings const& settings) {
    TableModel model;
    makeSettingsTable(model, settings);
    return save(model, Utilities::getSettingsFilepath());
}

PreferenceFiles::FileTest PreferenceFiles::examineSettingsFile() {
    return examine(Utilities::getSettingsFilepath(), titles());
}

bool PreferenceFiles::testSettingsFileValidity() {
    return examineSettingsFile() == FileTest::Sound;
}

bool PreferenceFiles::updateSettingsFile() {
    TableModel model;
    if (!load(model, Utilities::getSettingsFilepath())) {
        return false;
    }
    Settings settings;
    addUserSettings(model, settings);
    return makeSettingsFile(settings);
}

QString PreferenceFiles::writeSettingToFile(Settings const& settings, SettingType type) {
    QString const path = Utilities::getSettingsFilepath();
    TableModel model;
    if (isMissing(path)) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        makeSettingsTable(model, settings);
        return save(model, path) ? QString() : model.getLastSaveError();
    }
    if (!load(model, path)) {
        return QCoreApplication::translate("PreferenceFiles", "The settings file cannot be read.");
    }
    PreferenceTable const table(model, titles());
    for (int row = table.firstRow(); row < table.endRow(); ++row) {
        if (table.text(row, Name) != settings.get(type).name) {
            continue;
        }
        QString const value = settings.convertValueToStringForFile(type);
        model.setDataRaw(model.index(row, table.column(UserValue)), settings.isDefault(type) ? QString() : value);
        return save(model, path) ? QString() : model.getLastSaveError();
    }
    return {};
}

void PreferenceFiles::addUserSettings(TableModel const& model, Settings& settings) {
    PreferenceTable const table(model, titles());
    for (int row = table.firstRow(); row < table.endRow(); ++row) {
        QString const value = table.text(row, UserValue);
        if (!value.isEmpty()) {
            settings.setFromString(table.text(row, Name), value);
        }
    }
}
