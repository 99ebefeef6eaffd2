#include "app/SystemFileWatch.h"

#include "storage/FileStamp.h"

#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>
#include <utility>

SystemFileWatch::SystemFileWatch(QObject* parent) : QObject(parent) {
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, &SystemFileWatch::fileChangedSignal);
}

void SystemFileWatch::after(int ms, std::function<void()> call) {
    QTimer::singleShot(ms, this, std::move(call));
}

std::optional<FileState> SystemFileWatch::stateOf(QString const& path) const {
    QByteArray const name = QFile::encodeName(path);
    struct stat found {};
    if (stat(name.constData(), &found) != 0) {
        return std::nullopt;
    }
    if (S_ISDIR(found.st_mode)) {
        return FileState{0, 0, found.st_ino, false, false};
    }
    FileStamp const stamp = FileStamp::of(found);
    return FileState{stamp.modified, stamp.size, stamp.inode, access(name.constData(), R_OK) == 0,
                     S_ISREG(found.st_mode)};
}

// A watched folder would tell of what happens in it, and not that a file has taken its place.
void SystemFileWatch::watch(QString const& path) {
    if (!QFileInfo(path).isDir()) {
        watcher.addPath(path);
    }
}
