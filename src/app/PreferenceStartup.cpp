#include "app/PreferenceStartup.h"

#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <iterator>

namespace {

QString versionKey() {
    return QStringLiteral("main/preference_file_version");
}

struct PreferenceFile {
    QString (*path)();
    bool (*isValid)();
    bool (*make)();
    bool (*update)(Commands&);
};

// The order in which they are seen to.
constexpr PreferenceFile files[] = {
    {Utilities::getSettingsFilepath, PreferenceFiles::testSettingsFileValidity, PreferenceFiles::makeSettingsFile,
     [](Commands&) { return PreferenceFiles::updateSettingsFile(); }},
    {Utilities::getShortcutsFilepath, PreferenceFiles::testShortcutsFileValidity, PreferenceFiles::makeShortcutsFile,
     PreferenceFiles::updateShortcutsFile},
    {Utilities::getExtensionsFilepath, PreferenceFiles::testExtensionsFileValidity, PreferenceFiles::makeExtensionsFile,
     [](Commands&) { return PreferenceFiles::updateExtensionsFile(); }},
};

/// Also a link that leads nowhere: a file must not be written through it unasked.
bool isThere(QString const& path) {
    QFileInfo const info(path);
    return info.exists() || info.isSymLink();
}

} // namespace

PreferenceStartup::PreferenceStartup(QString const& directory) : directory(directory) {
    handleAppDataInRedundantFolders();
    firstInstall = !QFileInfo::exists(directory);
    QDir().mkpath(directory);
    storedVersion = QSettings(iniPath(), QSettings::IniFormat).value(versionKey()).toString();
    createOrTestFiles();
}

QString PreferenceStartup::runningVersion() {
    return QCoreApplication::applicationVersion();
}

QString PreferenceStartup::iniPath() const {
    return directory + QStringLiteral("/Gridwright.ini");
}

// Older versions kept their files one folder deeper, under the program's name once more.
void PreferenceStartup::handleAppDataInRedundantFolders() const {
    QDir redundant(directory + QStringLiteral("/Gridwright"));
    if (!redundant.exists()) {
        return;
    }
    for (QFileInfo const& file : redundant.entryInfoList(QDir::Files | QDir::Hidden)) {
        QString const target = directory + QLatin1Char('/') + file.fileName();
        QFile::remove(target);
        if (!QFile::rename(file.absoluteFilePath(), target)) {
            return; // What cannot be moved stays where it is, with its folder.
        }
    }
    redundant.removeRecursively();
}

// A damaged file is replaced. What cannot even be read, such as a folder of that name or another's file, may not be
// what it seems, and is left alone.
void PreferenceStartup::createOrTestFiles() {
    for (std::size_t i = 0; i < std::size(files); ++i) {
        PreferenceFile const& file = files[i];
        existed[i] = isThere(file.path());
        bool const damaged = existed[i] && PreferenceFiles::isReadable(file.path()) && !file.isValid();
        if (damaged || !existed[i]) {
            file.make();
        }
    }
}

void PreferenceStartup::createMissingFiles() {
    for (PreferenceFile const& file : files) {
        if (!isThere(file.path())) {
            file.make();
        }
    }
}

void PreferenceStartup::update(Commands& commands) {
    if (!isVersionChanged()) {
        return;
    }
    for (std::size_t i = 0; i < std::size(files); ++i) {
        if (existed[i]) {
            files[i].update(commands);
        }
    }
    QSettings(iniPath(), QSettings::IniFormat).setValue(versionKey(), runningVersion());
    storedVersion = runningVersion();
}
