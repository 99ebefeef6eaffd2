#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

/// What tells one version of a file from another.
struct FileState {
    QDateTime modified; ///< UTC
    qint64 size = 0;    ///< bytes

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
    /// None if there is no such file.
    virtual std::optional<FileState> stateOf(QString const& path) const = 0;
    virtual bool isWatched(QString const& path) const = 0;
    virtual void watch(QString const& path) = 0;
    virtual void unwatch(QString const& path) = 0;
};
