#pragma once

#include <QString>

// Where the program keeps what it remembers. The paths depend on the application name set at the time of the call.

namespace Utilities {

/// The preference directory, without a separator at its end. It need not exist yet.
QString getAppDataLocation();
QString getSettingsFilepath();
QString getShortcutsFilepath();
QString getExtensionsFilepath();
QString getTutorialFilepath();
/// What the program remembers and is no preference, as INI.
QString getConfigFilepath();

/// Whether a path names one of the three preference files, wherever it lies.
bool isPreferenceFilepath(QString const& path);

} // namespace Utilities
