#pragma once

#include <QDeadlineTimer>
#include <QString>

/// The folder in which the starts of the program find each other, and its lock, which the system releases when its
/// holder dies. Of one user, in this order: "gridwright" in the run-time folder that the session names, and in the one
/// where the system keeps it, "/run/user/UID"; or "gridwright-UID", "gridwright-UID-1" and "gridwright-UID-2" in the
/// temporary folder. A folder that another user owns or may enter, or that is a link, is passed over.
class RuntimeFolder {
public:
    RuntimeFolder() = default;
    ~RuntimeFolder();
    RuntimeFolder(RuntimeFolder const&) = delete;
    RuntimeFolder& operator=(RuntimeFolder const&) = delete;

    /// Opens the folder and makes it if it is missing. `perUser` false takes one that all users share. False if there
    /// is none that may be used.
    bool open(bool perUser);
    void close();

    /// Waits for the lock. False if another process keeps it, or if the file system has no locks.
    bool lock(QDeadlineTimer deadline);
    void unlock();

    /// Where the system keeps the run-time folders of its users, by their number; for tests.
    static void setSessionsFolder(QString const& folder);

    QString filePath(QString const& name) const { return path + QLatin1Char('/') + name; }
    bool isShared() const { return shared; }
    /// For system calls that take a path relative to an open folder; -1 while closed.
    int descriptor() const { return folder; }

private:
    bool openAt(QString const& candidate);

    QString path;
    int folder = -1;
    bool shared = false;
};
