#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

/// Tells when one of a window's preference files has changed, also after saves that put another file in its place.
class PreferenceWatcher : public QObject {
    Q_OBJECT

public:
    /// `paths` need not exist yet, but their directory does.
    explicit PreferenceWatcher(QStringList const& paths, QObject* parent = nullptr);

signals:
    /// Once for a burst of changes to the file `path`.
    void preferenceChangedSignal(QString const& path);

private:
    void onFileChanged(QString const& path);
    void onPreferenceDirChanged();
    void report();

    QFileSystemWatcher watcher;
    QStringList paths;
    QSet<QString> changed;
    QTimer quiet;
};
