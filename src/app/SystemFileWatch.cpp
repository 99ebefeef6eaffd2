#include "app/SystemFileWatch.h"

#include <QFileInfo>
#include <QTimer>

#include <utility>

SystemFileWatch::SystemFileWatch(QObject* parent) : QObject(parent) {
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, &SystemFileWatch::fileChangedSignal);
}

void SystemFileWatch::after(int ms, std::function<void()> call) {
    QTimer::singleShot(ms, this, std::move(call));
}

std::optional<FileState> SystemFileWatch::stateOf(QString const& path) const {
    QFileInfo const info(path);
    if (!info.exists()) {
        return std::nullopt;
    }
    return FileState{info.lastModified().toUTC(), info.size()};
}
