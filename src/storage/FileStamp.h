#pragma once

#include <QString>

#include <optional>
#include <sys/types.h>

struct stat;

/// Tells one version of a file from another.
struct FileStamp {
    quint64 device = 0;
    quint64 inode = 0;   ///< another one for a file that was put in the place of this one
    qint64 size = 0;     ///< bytes
    qint64 modified = 0; ///< in nanoseconds, UTC

    bool operator==(FileStamp const&) const = default;

    /// Of the file at `path`, links followed; none if it cannot be looked at.
    static std::optional<FileStamp> of(QString const& path);
    /// Of an open file: what was read from it is of this version.
    static std::optional<FileStamp> of(int descriptor);
    static FileStamp of(struct stat const& status);
};
