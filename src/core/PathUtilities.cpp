#include "core/PathUtilities.h"

#include <QStandardPaths>

QString Utilities::getAppDataLocation() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString Utilities::getSettingsFilepath() {
    return getAppDataLocation() + "/Settings (User).csv";
}

QString Utilities::getShortcutsFilepath() {
    return getAppDataLocation() + "/Shortcuts (User).csv";
}

QString Utilities::getExtensionsFilepath() {
    return getAppDataLocation() + "/File Extensions (User).csv";
}

QString Utilities::getTutorialFilepath() {
    return getAppDataLocation() + "/Tutorial (Fake Data).csv";
}
