#pragma once

#include <QString>

class Commands;

/// Brings the preference directory into order when the program starts: moves what an older version left a folder too
/// deep, writes what is missing or damaged from defaults, and updates what another version has written.
class PreferenceStartup {
public:
    /// Does everything but the update. Nothing is told: what cannot be written is left out, and defaults apply.
    explicit PreferenceStartup(QString const& directory);

    /// The directory was not there before.
    bool isFirstInstall() const { return firstInstall; }
    /// Another version, or none that is known, has last written the files.
    bool isVersionChanged() const { return storedVersion != runningVersion(); }
    /// Writes the files anew that another version has left, with the user's values, and notes that this version has.
    /// The user's shortcuts are put in force in `commands`.
    void update(Commands& commands);

    static QString runningVersion();
    /// Writes those of the preference files that do not exist.
    static void createMissingFiles();

private:
    void handleAppDataInRedundantFolders() const;
    void createOrTestFiles();
    QString iniPath() const;

    QString directory;
    QString storedVersion;
    bool firstInstall = false;
    bool existed[3] = {}; ///< by the order of the table of files
};
