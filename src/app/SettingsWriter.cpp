#include "app/SettingsWriter.h"

#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"
#include "model/TableModel.h"

namespace {

Settings readFile() {
    Settings settings;
    TableModel model;
    if (PreferenceFiles::load(model, Utilities::getSettingsFilepath())) {
        PreferenceFiles::addUserSettings(model, settings);
    }
    return settings;
}

/// A file without a row for a setting holds nothing of it.
bool isInFile(Settings const& settings, SettingType type) {
    return !settings.get(type).inFile ||
           settings.convertValueToStringForFile(type) == readFile().convertValueToStringForFile(type);
}

} // namespace

QString SettingsWriter::write(Settings const& settings, SettingType type) {
    QString const error = PreferenceFiles::writeSettingToFile(settings, type);
    if (!error.isEmpty()) {
        unwritten.insert_or_assign(type, Unwritten{settings, readFile()});
        return error;
    }
    unwritten.erase(type);
    std::erase_if(unwritten, [](auto const& each) {
        return PreferenceFiles::writeSettingToFile(each.second.inForce, each.first).isEmpty() &&
               isInFile(each.second.inForce, each.first);
    });
    if (!isInFile(settings, type)) {
        unwritten.insert_or_assign(type, Unwritten{settings, readFile()});
    }
    return {};
}

void SettingsWriter::restore(Settings& read) {
    std::erase_if(unwritten, [&](auto const& each) {
        return read.get(each.first).value != each.second.inFile.get(each.first).value;
    });
    for (auto const& [type, values] : unwritten) {
        read.takeValue(type, values.inForce);
    }
}
