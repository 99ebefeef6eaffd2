#include "storage/FileStamp.h"

#include <QFile>

#include <sys/stat.h>

std::optional<FileStamp> FileStamp::of(QString const& path) {
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return of(status);
}

std::optional<FileStamp> FileStamp::of(int descriptor) {
    struct stat status;
    if (fstat(descriptor, &status) != 0)
        return std::nullopt;
    return of(status);
}

FileStamp FileStamp::of(struct stat const& status) {
    constexpr qint64 nanoseconds = 1000000000;
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec};
}
