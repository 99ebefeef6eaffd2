#include "core/PathUtilities.h"

#include <QStandardPaths>

namespace {

constexpr QLatin1String settingsName("Settings (User).csv");
constexpr QLatin1String shortcutsName("Shortcuts (User).csv");
constexpr QLatin1String extensionsName("File Extensions (User).csv");

} // namespace

QString Utilities::getAppDataLocation() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString Utilities::getSettingsFilepath() {
    return getAppDataLocation() + QLatin1Char('/') + settingsName;
}

QString Utilities::getShortcutsFilepath() {
    return getAppDataLocation() + QLatin1Char('/') + shortcutsName;
}

QString Utilities::getExtensionsFilepath() {
    return getAppDataLocation() + QLatin1Char('/') + extensionsName;
}

QString Utilities::getTutorialFilepath() {
    return getAppDataLocation() + "/Tutorial (Fake Data).csv";
}

QString Utilities::getConfigFilepath() {
    return getAppDataLocation() + QLatin1String("/Gridwright.ini");
}

bool Utilities::isPreferenceFilepath(QString const& path) {
    return path.contains(settingsName) || path.contains(shortcutsName) || path.contains(extensionsName);
}
