#include "storage/AtomicFileWriter.h"

#include "storage/FileAttributes.h"
#include "storage/FileCalls.h"
#include "storage/TemporaryNames.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int maximumLinks = 40; // as many as the kernel follows
constexpr int nameAttempts = 100;
constexpr std::int64_t diskStep = 8 << 20;

QByteArray pathOfDescriptor(int descriptor) {
    return "/proc/self/fd/" + QByteArray::number(descriptor);
}

/// Whether a file without a name cannot get one here, for another reason than the state of the disk.
bool cannotName(int error) {
    return error == EPERM || error == EOPNOTSUPP || error == ENOENT || error == ENOSYS || error == EXDEV ||
           error == EINVAL || error == EMLINK;
}

/// A new file gets what the umask leaves of this; the copy of an old one is nobody's business until it is whole.
mode_t modeUntilWhole(bool targetExists) {
    return targetExists ? 0600 : 0666;
}

QString targetChanged(QByteArray const& path) {
    return QStringLiteral("The file %1 has been changed by another program.").arg(pathForUser(path));
}

} // namespace

AtomicFileWriter::AtomicFileWriter(QString const& path, Options options)
    : path(QFile::encodeName(path)), options(std::move(options)) {}

AtomicFileWriter::~AtomicFileWriter() {
    discard();
}

int AtomicFileWriter::linkCount(QString const& path) {
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode)
               ? static_cast<int>(status.st_nlink)
               : 0;
}

bool AtomicFileWriter::open() {
    return followLinks() && inspectTarget() && openTemporary();
}

bool AtomicFileWriter::write(std::string_view bytes) {
    if (!failed && !writeBytes(file, bytes))
        return failWithErrno(SaveObject::File);
    written += static_cast<std::int64_t>(bytes.size());
    startWritingToDisk();
    return !failed;
}

// The disk works while the next bytes are made: the wait at the end is short then.
void AtomicFileWriter::startWritingToDisk() {
    if (failed || written - handedToDisk < diskStep)
        return;
    sync_file_range(file, handedToDisk, written - handedToDisk, SYNC_FILE_RANGE_WRITE);
    handedToDisk = written;
}

bool AtomicFileWriter::commit() {
    if (failed)
        return false;
    struct stat status;
    if (fstat(file, &status) != 0)
        return failWithErrno(SaveObject::File);
    errno = 0;
    if (status.st_size != written)
        return failWithErrno(SaveObject::File);
    bool const done = options.way == Way::InPlace && targetExists ? writeInPlace() : takePlace();
    if (!done)
        return false;
    result = Outcome::Saved;
    discard();
    return true;
}

bool AtomicFileWriter::fail(QString const& text) {
    failed = true;
    if (result != Outcome::TargetChanged)
        result = Outcome::Failed;
    reason = text;
    return false;
}

bool AtomicFileWriter::failWithErrno(SaveObject about) {
    return fail(saveErrorSentence(errno, about, path));
}

bool AtomicFileWriter::followLinks() {
    if (path.contains('\0')) {
        path.replace('\0', "?");
        errno = EINVAL;
        return failWithErrno(SaveObject::File);
    }
    struct stat status;
    for (int links = 0; lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode); ++links) {
        QByteArray target(PATH_MAX, '\0');
        auto const size = links == maximumLinks ? -1 : readlink(path.constData(), target.data(), target.size());
        if (links == maximumLinks)
            errno = ELOOP;
        if (size < 0)
            return failWithErrno(SaveObject::File);
        target.truncate(size);
        path = target.startsWith('/') ? target : folderOfPath(path) + '/' + target;
    }
    name = path.mid(path.lastIndexOf('/') + 1);
    return true;
}

bool AtomicFileWriter::inspectTarget() {
    struct stat status;
    if (lstat(path.constData(), &status) != 0) {
        if (errno != ENOENT)
            return failWithErrno(SaveObject::Folder);
        return !name.isEmpty() || fail(QStringLiteral("The path names a directory, not a file."));
    }
    targetExists = true;
    if (S_ISDIR(status.st_mode))
        return fail(QStringLiteral("The path names a directory, not a file."));
    if (!S_ISREG(status.st_mode))
        return fail(QStringLiteral("The path names something that is not a regular file."));
    return faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0 || failWithErrno(SaveObject::File);
}

// A file without a name vanishes by itself if the process dies. Where a file system has none, a hidden name does.
bool AtomicFileWriter::openTemporary() {
    directory = uninterrupted([&] { return ::open(folderOfPath(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC); });
    if (directory < 0)
        return failWithErrno(SaveObject::Folder);
    removeAbandonedFiles(directory);
    file = openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, modeUntilWhole(targetExists));
    if (file >= 0 && access(pathOfDescriptor(file).constData(), F_OK) == 0)
        return true;
    closeFile(file);
    return openNamed() || failWithErrno(SaveObject::Folder);
}

bool AtomicFileWriter::openNamed() {
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        temporary = newTemporaryName();
        file = uninterrupted([&] {
            return openat(directory, temporary.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC,
                          modeUntilWhole(targetExists));
        });
        if (file >= 0)
            return true;
        if (errno != EEXIST)
            break;
    }
    temporary.clear();
    return false;
}

bool AtomicFileWriter::nameTemporary() {
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        auto const candidate = newTemporaryName();
        if (uninterrupted([&] {
                return linkat(AT_FDCWD, pathOfDescriptor(file).constData(), directory, candidate.constData(),
                              AT_SYMLINK_FOLLOW);
            }) == 0) {
            temporary = candidate;
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return false;
}

// Rare enough that the bytes may be written twice: a probe before would cost every save something.
bool AtomicFileWriter::copyToNamed() {
    int unnamed = std::exchange(file, -1);
    bool const copied = openNamed() && copyContents(unnamed, file);
    auto const error = errno;
    closeFile(unnamed);
    errno = error;
    return copied || failWithErrno(SaveObject::Folder);
}

bool AtomicFileWriter::inheritAndSync() {
    if (targetExists) {
        auto const inherited = inheritFileAttributes(file, path);
        if (!inherited)
            return failWithErrno(SaveObject::File);
        if (inherited->opensMore)
            return fail(QStringLiteral("The new file would be open to more people than %1 is.").arg(pathForUser(path)));
        remarks = inherited->notKept;
    }
    return uninterrupted([&] { return fsync(file); }) == 0 || failWithErrno(SaveObject::File);
}

bool AtomicFileWriter::targetIsExpected() {
    struct stat status;
    if (!options.expected)
        return true;
    if (fstatat(directory, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT || failWithErrno(SaveObject::File);
    if (FileStamp::of(status) == *options.expected)
        return true;
    result = Outcome::TargetChanged;
    return fail(targetChanged(path));
}

bool AtomicFileWriter::takePlace() {
    if (!inheritAndSync())
        return false;
    if (temporary.isEmpty() && !nameTemporary()) {
        if (!cannotName(errno))
            return failWithErrno(SaveObject::Folder);
        if (!copyToNamed() || !inheritAndSync())
            return false;
    }
    return targetIsExpected() && renameTemporary();
}

bool AtomicFileWriter::isInPlace(struct stat const& status) const {
    struct stat found;
    return fstatat(directory, name.constData(), &found, AT_SYMLINK_NOFOLLOW) == 0 && found.st_dev == status.st_dev &&
           found.st_ino == status.st_ino;
}

bool AtomicFileWriter::renameTemporary() {
    struct stat status;
    // File systems of other machines may tell of a failed write when the file is closed.
    if (fstat(file, &status) != 0 || !closeFile(file))
        return failWithErrno(SaveObject::File);
    auto const renamed =
        uninterrupted([&] { return renameat(directory, temporary.constData(), directory, name.constData()); });
    auto const error = errno;
    // A call that was repeated may have been carried out the first time.
    if (renamed != 0 && !isInPlace(status)) {
        errno = error;
        return failWithErrno(SaveObject::Folder);
    }
    temporary.clear();
    saved = FileStamp::of(status);
    // The new name reaches the disk too. The file is in its place already, so this cannot fail the save any more.
    syncDirectory();
    return true;
}

void AtomicFileWriter::syncDirectory() {
    if (int readable = openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); readable >= 0) {
        fsync(readable);
        close(readable);
    }
}

bool AtomicFileWriter::writeInPlace() {
    int target = uninterrupted([&] { return openat(directory, name.constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC); });
    struct stat former;
    bool done = false;
    if (target < 0 || fstat(target, &former) != 0 || !makeBackup(target))
        failWithErrno(SaveObject::File);
    else if (targetIsExpected()) {
        done = replaceContents(target);
        if (done)
            saved = FileStamp::of(target);
        else
            restoreBackup(target, former);
    }
    closeFile(target);
    if (!backup.isEmpty() && uninterrupted([&] { return unlinkat(directory, backup.constData(), 0); }) != 0)
        remarks.append(QStringLiteral("A copy of the former contents is left in %1.")
                           .arg(pathForUser(folderOfPath(path) + '/' + backup)));
    return done || fail(reason);
}

bool AtomicFileWriter::makeBackup(int target) {
    constexpr int longestStem = 200;
    backup = name.left(longestStem) + ".backup" + newTemporaryName().split('-').last().chopped(4);
    int copy = uninterrupted(
        [&] { return openat(directory, backup.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600); });
    if (copy < 0) {
        backup.clear();
        return false;
    }
    bool const made = copyContents(target, copy) && uninterrupted([&] { return fsync(copy); }) == 0;
    auto const error = errno;
    closeFile(copy);
    syncDirectory();
    errno = error;
    return made;
}

// The room is taken first: a full disk leaves the file alone then.
bool AtomicFileWriter::replaceContents(int target) {
    if (written > 0 && uninterrupted([&] { return fallocate(target, FALLOC_FL_KEEP_SIZE, 0, written); }) != 0 &&
        errno != EOPNOTSUPP && errno != ENOSYS)
        return false;
    return copyContents(file, target) && uninterrupted([&] { return fsync(target); }) == 0;
}

void AtomicFileWriter::restoreBackup(int target, struct stat const& former) {
    reason = saveErrorSentence(errno, SaveObject::File, path);
    int copy = uninterrupted([&] { return openat(directory, backup.constData(), O_RDONLY | O_CLOEXEC); });
    bool const restored = copy >= 0 && copyContents(copy, target) && uninterrupted([&] { return fsync(target); }) == 0;
    closeFile(copy);
    timespec const times[] = {former.st_atim, former.st_mtim};
    if (restored) {
        futimens(target, times); // it is the version that it was
        return;
    }
    reason += QStringLiteral(" Its former contents are in %1.").arg(pathForUser(folderOfPath(path) + '/' + backup));
    backup.clear();
}

// Closed first: in the folders of other machines an open file leaves a name behind when it is removed.
void AtomicFileWriter::discard() {
    closeFile(file);
    if (!temporary.isEmpty())
        uninterrupted([&] { return unlinkat(directory, temporary.constData(), 0); });
    temporary.clear();
    closeFile(directory);
}
