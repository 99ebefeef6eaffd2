#pragma once

#include "app/FileWatch.h"
#include "commands/RefreshBehavior.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>

/// Tells changes that other programs make to the files of open tables from those of the program's own saves and loads,
/// and decides what is to become of them. It shows nothing and touches no table: what is to be done goes out by
/// signals.
///
/// Each path is idle, has a change waiting for a quiet moment, or is being read again. Of a burst of events only the
/// last one counts; its look at the file is put off while a save, a load or a question runs and for a while after the
/// program's own last write.
class WatchedFiles : public QObject {
    Q_OBJECT

public:
    /// What the window knows of its tables.
    struct Tables {
        std::function<RefreshBehavior()> behavior;
        std::function<bool(QString const& path)> isOpen;
        std::function<bool(QString const& path)> hasUnsavedEdits;
        /// Somebody waits for a question or a job, so that no table may go or change.
        std::function<bool()> isAsking;
        std::function<bool(QString const& path)> isLoading;
    };
    /// In milliseconds.
    struct Timings {
        int quiet = 750;     ///< from an event to the look at the file
        int cooldown = 3000; ///< after the program's own writes and loads
        int restore = 1000;  ///< from a save to the return of the watch, which a replaced file has lost
    };

    WatchedFiles(FileWatch& files, Tables tables, Timings timings, QObject* parent = nullptr);

    /// Begins to watch the file of a table that was opened, or that has moved to this file.
    void add(QString const& path);
    /// Ends the watch of a table's file.
    void remove(QString const& path);
    /// The present state of the file is known: it asks for nothing.
    void recordWatchedFileState(QString const& path);
    /// Whether the file is another one than the recorded one, or gone.
    bool hasWatchedFileStateChanged(QString const& path) const;
    /// The file is about to be read again by the program.
    void startReload(QString const& path);

public slots:
    void onFileChanged(QString const& path);
    void onSaveStarted(QString const& path);
    void onSaveFinished(QString const& path);
    /// A load of that file has ended, whatever began it.
    void onLoadFinished(QString const& path);

signals:
    /// The file is gone; its table goes too.
    void fileGoneSignal(QString path);
    /// The user is to say whether the file is read again: reload, or recordWatchedFileState if not.
    void askSignal(QString path);
    /// The same, of a table whose edits a reload would lose.
    void askAboutUnsavedSignal(QString path);
    void reloadSignal(QString path);

private:
    void deferExternalFileChange(QString const& path);
    void processExternalFileChange(QString const& path, int generation);
    void processLater(QString const& path, int generation);
    bool mustWait(QString const& path) const;
    void startInternalFileChangeCooldown(QString const& path);
    void clearWatchedFileState(QString const& path);
    void resetFilepathSavedList();
    void restoreWatch(QString const& path);

    FileWatch& files;
    Tables tables;
    Timings timings;
    bool saving = false;
    QStringList savedPaths; ///< written or read by the program since the watches were last restored
    QSet<QString> loadingPaths;
    QHash<QString, int> generations; ///< events so far
    QHash<QString, QDateTime> cooldowns;
    QHash<QString, FileState> lastSeen;
};
