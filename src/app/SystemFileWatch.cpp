#include "app/SystemFileWatch.h"

#include <QFile>
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
    constexpr qint64 nanoseconds = 1000000000;
    QByteArray const name = QFile::encodeName(path);
    struct stat found {};
    if (stat(name.constData(), &found) != 0 || S_ISDIR(found.st_mode)) {
        return std::nullopt;
    }
    return FileState{found.st_mtim.tv_sec * nanoseconds + found.st_mtim.tv_nsec, found.st_size, found.st_ino,
                     access(name.constData(), R_OK) == 0};
}
