#include "storage/AtomicFileWriter.h"

#include "storage/FileAttributes.h"

#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int maximumLinks = 40; // as many as the kernel follows
constexpr int nameAttempts = 100;
constexpr std::int64_t diskStep = 8 << 20;

QByteArray directoryOf(QByteArray const& path) {
    auto const slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

QByteArray readLink(QByteArray const& path) {
    QByteArray target(PATH_MAX, '\0');
    target.truncate(std::max<ssize_t>(0, readlink(path.constData(), target.data(), target.size())));
    return target;
}

QByteArray pathOfDescriptor(int descriptor) {
    return "/proc/self/fd/" + QByteArray::number(descriptor);
}

QByteArray randomName() {
    return ".gridwright-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36) + ".tmp";
}

void closeIfOpen(int& descriptor) {
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

} // namespace

AtomicFileWriter::AtomicFileWriter(QString const& path) : path(QFile::encodeName(path)) {}

AtomicFileWriter::~AtomicFileWriter() {
    discard();
}

bool AtomicFileWriter::open() {
    return followLinks() && inspectTarget() && openTemporary();
}

bool AtomicFileWriter::write(std::string_view bytes) {
    while (!failed && !bytes.empty()) {
        auto const count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? failWithErrno() : fail(QString());
        written += count;
        bytes.remove_prefix(count);
    }
    startWritingToDisk();
    return !failed;
}

// The disk works while the next bytes are made: the wait at the end is short then.
void AtomicFileWriter::startWritingToDisk() {
    if (written - handedToDisk < diskStep)
        return;
    sync_file_range(file, handedToDisk, written - handedToDisk, SYNC_FILE_RANGE_WRITE);
    handedToDisk = written;
}

bool AtomicFileWriter::commit() {
    if (failed)
        return false;
    struct stat status;
    if (fstat(file, &status) != 0)
        return failWithErrno();
    if (status.st_size != written)
        return fail(QString());
    if ((targetExists && !inheritFileAttributes(file, path)) || fsync(file) != 0)
        return failWithErrno();
    if (temporary.isEmpty() && !nameTemporary())
        return false;
    if (renameat(directory, temporary.constData(), directory, name.constData()) != 0)
        return failWithErrno();
    temporary.clear();
    // The new name reaches the disk too. The file is in its place already, so this cannot fail the save any more.
    if (int readable = openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); readable >= 0) {
        fsync(readable);
        close(readable);
    }
    discard();
    return true;
}

bool AtomicFileWriter::fail(QString const& text) {
    failed = true;
    reason = text;
    discard();
    return false;
}

bool AtomicFileWriter::failWithErrno() {
    return fail(qt_error_string(errno));
}

bool AtomicFileWriter::followLinks() {
    if (path.contains('\0')) {
        errno = EINVAL;
        return failWithErrno();
    }
    struct stat status;
    for (int links = 0; lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode); ++links) {
        auto const target = readLink(path);
        if (links == maximumLinks || target.isEmpty())
            return fail(QStringLiteral("The symbolic link leads back to itself."));
        path = target.startsWith('/') ? target : directoryOf(path) + '/' + target;
    }
    name = path.mid(path.lastIndexOf('/') + 1);
    return true;
}

bool AtomicFileWriter::inspectTarget() {
    struct stat status;
    if (lstat(path.constData(), &status) != 0) {
        if (errno != ENOENT)
            return failWithErrno();
        return !name.isEmpty() || fail(QStringLiteral("The path names a directory, not a file."));
    }
    targetExists = true;
    if (S_ISDIR(status.st_mode))
        return fail(QStringLiteral("The path names a directory, not a file."));
    if (!S_ISREG(status.st_mode))
        return fail(QStringLiteral("The path names something that is not a regular file."));
    return faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0 || failWithErrno();
}

// A file without a name vanishes by itself if the process dies. Where a file system has none, a hidden name does.
bool AtomicFileWriter::openTemporary() {
    directory = ::open(directoryOf(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return failWithErrno();
    // A new file gets what the umask leaves of this; the copy of an old one is nobody's business until it is whole.
    auto const mode = targetExists ? 0600 : 0666;
    file = openat(directory, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    if (file >= 0 && access(pathOfDescriptor(file).constData(), F_OK) == 0)
        return true;
    closeIfOpen(file);
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        temporary = randomName();
        file = openat(directory, temporary.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST)
            break;
    }
    if (file >= 0)
        return true;
    temporary.clear();
    return failWithErrno();
}

bool AtomicFileWriter::nameTemporary() {
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        auto const candidate = randomName();
        if (linkat(AT_FDCWD, pathOfDescriptor(file).constData(), directory, candidate.constData(), AT_SYMLINK_FOLLOW) ==
            0) {
            temporary = candidate;
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return failWithErrno();
}

void AtomicFileWriter::discard() {
    if (!temporary.isEmpty())
        unlinkat(directory, temporary.constData(), 0);
    temporary.clear();
    closeIfOpen(file);
    closeIfOpen(directory);
}
