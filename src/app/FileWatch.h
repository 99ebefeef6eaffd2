#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

/// What tells one version of a file from another.
struct FileState {
    qint64 modified = 0; ///< in nanoseconds, UTC
    qint64 size = 0;     ///< bytes
    quint64 inode = 0;   ///< another one for a file that was put in the place of this one
    bool readable = false;
    bool regular = false; ///< what a save could put another file in the place of

    bool operator==(FileState const&) const = default;
};

/// The clock, the timers and the files, as far as watching files needs them.
class FileWatch {
public:
    virtual ~FileWatch() = default;

    /// UTC.
    virtual QDateTime now() const = 0;
    /// Runs `call` once, `ms` milliseconds from now.
    virtual void after(int ms, std::function<void()> call) = 0;
    /// None if there is nothing at the path. A folder there is a file that cannot be read, whatever happens in it.
    virtual std::optional<FileState> stateOf(QString const& path) const = 0;
    virtual bool isWatched(QString const& path) const = 0;
    virtual void watch(QString const& path) = 0;
    virtual void unwatch(QString const& path) = 0;
};
