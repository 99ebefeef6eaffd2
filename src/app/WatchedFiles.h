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
///
/// A watch can be missing: a file that may not be read has none, and those of the system can run out. Then the file is
/// looked at from time to time until its watch is back. Whatever was heard, no save goes over a file that is not the
/// one which the program read or wrote last, before the user was asked about it.
class WatchedFiles : public QObject {
    Q_OBJECT

public:
    /// What the window knows of its tables.
    struct Tables {
        std::function<RefreshBehavior()> behavior;
        std::function<bool(QString const& path)> isOpen;
        std::function<bool(QString const& path)> hasUnsavedEdits;
        /// Somebody waits for a question or a job, or types, so that no table may go or change and nothing be asked.
        std::function<bool()> isAsking;
        std::function<bool(QString const& path)> isLoading;
    };
    /// In milliseconds.
    struct Timings {
        int quiet = 750;     ///< from an event to the look at the file
        int cooldown = 3000; ///< after the program's own writes and loads
        int restore = 1000;  ///< from a save to the return of the watch, which a replaced file has lost
        int retry = 2000;    ///< between two looks at a file without a watch
    };

    WatchedFiles(FileWatch& files, Tables tables, Timings timings, QObject* parent = nullptr);

    /// Begins to watch the file of a table that was opened, or that has moved to this file.
    void add(QString const& path);
    /// Ends the watch of a table's file.
    void remove(QString const& path);
    /// The user has answered the question about a change, and wants none of it. What has come since it was asked asks
    /// again.
    void ignoreChange(QString const& path);
    /// The present state of the file is known: it asks for nothing.
    void recordWatchedFileState(QString const& path);
    /// Whether the file is another one than the recorded one, or gone.
    bool hasWatchedFileStateChanged(QString const& path) const;
    /// Whether a save has to wait since it would put away what the user has not been told of. What is to be done about
    /// that change goes out at once.
    bool holdsBackSave(QString const& path);
    /// The same for a save that the user did not ask for, which can run amid an edit: it goes out later.
    bool holdsBackAutoSave(QString const& path);
    /// Whether changes by other programs are told at all.
    bool isHeedingChanges() const;
    /// A save has found another file than the one that its table knows. What is to be done about that goes out at once.
    void onSaveRefused(QString const& path);
    /// The same of an automatic save: it goes out later.
    void onAutoSaveRefused(QString const& path);
    /// Ignores the automatic saves, of the table models it is installed on, which have to wait.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The file is about to be read again by the program.
    void startReload(QString const& path);

public slots:
    void onFileChanged(QString const& path);
    void onSaveStarted(QString const& path);
    void onSaveFinished(QString const& path);
    /// A load of that file has ended, whatever began it.
    void onLoadFinished(QString const& path);
    /// It has ended without a table.
    void onLoadFailed(QString const& path);

signals:
    /// The file is gone; its table goes too.
    void fileGoneSignal(QString path);
    /// The user is to say whether the file is read again: reload, or ignoreChange if not.
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
    void lookAgain(QString const& path);
    void tellChange(QString const& path);
    bool isUnknown(QString const& path) const;
    bool wouldSaveOverChange(QString const& path) const;

    FileWatch& files;
    Tables tables;
    Timings timings;
    bool saving = false;
    QString savingPath;     ///< of the last save that was begun
    QStringList savedPaths; ///< written or read by the program since the watches were last restored
    QSet<QString> loadingPaths;
    QHash<QString, int> generations; ///< events so far
    QHash<QString, QDateTime> cooldowns;
    QHash<QString, FileState> lastSeen;
    QHash<QString, FileState> asked; ///< what the last question about each file was about
    QSet<QString> unread;            ///< their last seen contents could not be read
    QSet<QString> unwatched;         ///< looked at from time to time
};
