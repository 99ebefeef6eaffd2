#include "app/PreferenceWatcher.h"

#include "core/ModalHold.h"

#include <QFileInfo>

#include <utility>

PreferenceWatcher::PreferenceWatcher(QStringList const& paths, QObject* parent) : QObject(parent), paths(paths) {
    // A save comes as several events, at the first of which the file may be empty still.
    constexpr int burstMs = 50;
    quiet.setSingleShot(true);
    quiet.setInterval(burstMs);
    connect(&quiet, &QTimer::timeout, this, &PreferenceWatcher::report);
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, &PreferenceWatcher::onFileChanged);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &PreferenceWatcher::onPreferenceDirChanged);
    for (QString const& path : paths) {
        for (QString const& watched : {path, QFileInfo(path).absolutePath()}) {
            if (QFileInfo::exists(watched)) {
                watcher.addPath(watched);
            }
        }
    }
}

void PreferenceWatcher::onFileChanged(QString const& path) {
    changed.insert(path);
    quiet.start();
}

// A file that was put in the place of another is not watched yet, and nothing has told of its content.
void PreferenceWatcher::onPreferenceDirChanged() {
    QStringList const watched = watcher.files();
    for (QString const& path : std::as_const(paths)) {
        if (!watched.contains(path) && QFileInfo::exists(path) && watcher.addPath(path)) {
            onFileChanged(path);
        }
    }
}

void PreferenceWatcher::report() {
    onPreferenceDirChanged();
    for (QString const& path : std::exchange(changed, {})) {
        ModalHold::whenFree(this, [this, path] { emit preferenceChangedSignal(path); });
    }
}
