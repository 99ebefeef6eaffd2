#pragma once

#include "app/FileWatch.h"

#include <QFileSystemWatcher>

/// The real clock and the real files.
class SystemFileWatch : public QObject, public FileWatch {
    Q_OBJECT

public:
    explicit SystemFileWatch(QObject* parent = nullptr);

    QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
    void after(int ms, std::function<void()> call) override;
    std::optional<FileState> stateOf(QString const& path) const override;
    bool isWatched(QString const& path) const override { return watcher.files().contains(path); }
    void watch(QString const& path) override;
    void unwatch(QString const& path) override { watcher.removePath(path); }

signals:
    void fileChangedSignal(QString path);

private:
    QFileSystemWatcher watcher;
};
