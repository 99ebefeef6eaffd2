#include "app/SharedBlock.h"

#include "app/InstanceBlock.h"
#include "app/RuntimeFolder.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int openFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

SharedBlock::Result resultOf(int error) {
    switch (error) {
    case ENOENT: return SharedBlock::Result::Missing;
    case ELOOP:  // a link
    case EISDIR: // a folder
    case ENXIO:  // a socket
    case EACCES:
    case EPERM: return SharedBlock::Result::Foreign;
    default: return SharedBlock::Result::Failed;
    }
}

QByteArray fileNameOf(QString const& name) {
    return QFile::encodeName(name) + ".block";
}

} // namespace

SharedBlock::~SharedBlock() {
    close();
}

SharedBlock::Result SharedBlock::attach(RuntimeFolder const& folder, QString const& name) {
    close();
    fileName = fileNameOf(name);
    file = ::openat(folder.descriptor(), fileName.constData(), openFlags);
    if (file < 0) {
        return resultOf(errno);
    }
    Result const result = take(folder);
    if (result != Result::Attached) {
        close();
    }
    return result;
}

SharedBlock::Result SharedBlock::create(RuntimeFolder const& folder, QString const& name) {
    Result const present = attach(folder, name);
    if (present != Result::Missing) {
        return present;
    }
    mode_t const ofOwner = S_IRUSR | S_IWUSR;
    mode_t const ofAll = ofOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    file = ::openat(folder.descriptor(), fileName.constData(), openFlags | O_CREAT | O_EXCL, ofOwner);
    if (file < 0) {
        return resultOf(errno);
    }
    bool const open = !folder.isShared() || ::fchmod(file, ofAll) == 0;
    Result const result = open ? takeFree() : Result::Failed;
    if (result != Result::Attached) {
        ::unlinkat(folder.descriptor(), fileName.constData(), 0);
        close();
    }
    return result;
}

SharedBlock::Result SharedBlock::take(RuntimeFolder const& folder) {
    struct stat info = {};
    if (::fstat(file, &info) != 0) {
        return Result::Failed;
    }
    bool const ours = folder.isShared() || info.st_uid == geteuid();
    bool const fits = info.st_size == 0 || info.st_size == sizeof(InstanceBlock);
    if (!S_ISREG(info.st_mode) || info.st_nlink != 1 || !ours || !fits) {
        return Result::Foreign;
    }
    // Every start that is attached shares a lock on the file. Alone with it: all that were attached have died.
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        return ::unlinkat(folder.descriptor(), fileName.constData(), 0) == 0 ? Result::Missing : resultOf(errno);
    }
    if (errno != EWOULDBLOCK) {
        return Result::Failed;
    }
    bool const shared = ::flock(file, LOCK_SH | LOCK_NB) == 0;
    return shared && info.st_size != 0 ? map() : Result::Foreign;
}

SharedBlock::Result SharedBlock::takeFree() {
    // Allocated, since a write into the mapping of a hole on a full disk would end the process.
    errno = ::posix_fallocate(file, 0, sizeof(InstanceBlock));
    if (errno != 0 || ::flock(file, LOCK_SH | LOCK_NB) != 0) {
        return Result::Failed;
    }
    Result const result = map();
    if (result == Result::Attached) {
        mapping->initialise();
    }
    return result;
}

SharedBlock::Result SharedBlock::map() {
    void* const memory = ::mmap(nullptr, sizeof(InstanceBlock), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED) {
        return Result::Failed;
    }
    mapping = static_cast<InstanceBlock*>(memory);
    return Result::Attached;
}

void SharedBlock::release(RuntimeFolder const& folder) {
    if (mapping == nullptr) {
        return;
    }
    struct stat mine = {};
    struct stat present = {};
    bool const inPlace = ::fstat(file, &mine) == 0 &&
                         ::fstatat(folder.descriptor(), fileName.constData(), &present, AT_SYMLINK_NOFOLLOW) == 0 &&
                         mine.st_ino == present.st_ino;
    if (inPlace && ::flock(file, LOCK_EX | LOCK_NB) == 0) {
        ::unlinkat(folder.descriptor(), fileName.constData(), 0);
    }
    close();
}

void SharedBlock::close() {
    if (mapping != nullptr) {
        ::munmap(mapping, sizeof(InstanceBlock));
        mapping = nullptr;
    }
    if (file >= 0) {
        ::close(file);
        file = -1;
    }
}
