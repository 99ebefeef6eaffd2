#include "app/PreferenceStartup.h"

#include "app/files/ConfigFile.h"
#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <iterator>

namespace {

QString versionKey() {
    return QStringLiteral("main/preference_file_version");
}

struct PreferenceFile {
    QString (*path)();
    PreferenceFiles::FileTest (*examine)();
    bool (*make)();
    bool (*update)(Commands&);
};

// The order in which they are seen to.
constexpr PreferenceFile files[] = {
    {Utilities::getSettingsFilepath, PreferenceFiles::examineSettingsFile, PreferenceFiles::makeSettingsFile,
     [](Commands&) { return PreferenceFiles::updateSettingsFile(); }},
    {Utilities::getShortcutsFilepath, PreferenceFiles::examineShortcutsFile, PreferenceFiles::makeShortcutsFile,
     PreferenceFiles::updateShortcutsFile},
    {Utilities::getExtensionsFilepath, PreferenceFiles::examineExtensionsFile, PreferenceFiles::makeExtensionsFile,
     [](Commands&) { return PreferenceFiles::updateExtensionsFile(); }},
};

/// Gives a file another name in its folder, which says what it is. False if that fails, and it stays.
bool setAside(QString const& path) {
    QFileInfo const file(path);
    constexpr int most = 100;
    for (int number = 1; number <= most; ++number) {
        QString const mark = number == 1 ? QStringLiteral("damaged") : QStringLiteral("damaged %1").arg(number);
        QString const aside =
            QStringLiteral("%1/%2 - %3.%4").arg(file.path(), file.completeBaseName(), mark, file.suffix());
        if (PreferenceFiles::isMissing(aside)) {
            return QFile::rename(path, aside);
        }
    }
    return false;
}

} // namespace

PreferenceStartup::PreferenceStartup(QString const& directory) : directory(directory) {
    handleAppDataInRedundantFolders();
    firstInstall = !QFileInfo::exists(directory);
    QDir().mkpath(directory);
    // Of a file that cannot be read nobody knows that another version has written it.
    storedVersion = ConfigFile(iniPath()).read(versionKey()).value_or(runningVersion()).toString();
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
        if (std::rename(QFile::encodeName(file.absoluteFilePath()).constData(),
                        QFile::encodeName(target).constData()) != 0) {
            return; // What cannot be moved stays where it is, with its folder.
        }
    }
    QDir().rmdir(redundant.path()); // only if nothing is left in it
}

// A file that was read whole and is none of ours makes room for a new one. What cannot be read, such as a folder of
// that name, another's file or one on a disk that fails, may not be what it seems, and is left alone.
void PreferenceStartup::createOrTestFiles() {
    for (std::size_t i = 0; i < std::size(files); ++i) {
        PreferenceFile const& file = files[i];
        existed[i] = !PreferenceFiles::isMissing(file.path());
        bool const damaged = existed[i] && file.examine() == PreferenceFiles::FileTest::Damaged;
        if (!existed[i] || (damaged && setAside(file.path()))) {
            file.make();
        }
    }
}

void PreferenceStartup::createMissingFiles() {
    for (PreferenceFile const& file : files) {
        if (PreferenceFiles::isMissing(file.path())) {
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
    ConfigFile(iniPath()).write(versionKey(), runningVersion());
    storedVersion = runningVersion();
}
