#include "storage/FileAttributes.h"

#include <QList>

#include <algorithm>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr auto accessList = "system.posix_acl_access";

QByteArray attributeNames(QByteArray const& path) {
    auto const size = listxattr(path.constData(), nullptr, 0);
    if (size <= 0)
        return {};
    QByteArray names(size, '\0');
    names.truncate(std::max<ssize_t>(0, listxattr(path.constData(), names.data(), names.size())));
    return names;
}

void copyAttribute(int file, QByteArray const& original, char const* name) {
    auto const size = getxattr(original.constData(), name, nullptr, 0);
    if (size < 0)
        return;
    QByteArray value(size, '\0');
    auto const read = getxattr(original.constData(), name, value.data(), value.size());
    if (read >= 0)
        fsetxattr(file, name, value.constData(), read, 0);
}

} // namespace

bool inheritFileAttributes(int file, QByteArray const& original) {
    struct stat source, target;
    if (stat(original.constData(), &source) != 0 || fstat(file, &target) != 0)
        return false;
    auto mode = source.st_mode & 07777;
    bool const groupKept = source.st_gid == target.st_gid || fchown(file, -1, source.st_gid) == 0;
    bool const ownerKept = source.st_uid == target.st_uid || fchown(file, source.st_uid, -1) == 0;
    // Another group must not gain what the old one had, and no program starts to run as somebody else.
    if (!groupKept)
        mode &= ~S_ISGID & (~S_IRWXG | (mode & S_IRWXO) << 3);
    if (!ownerKept)
        mode &= ~S_ISUID;
    if (fchmod(file, mode) != 0)
        return false;
    auto const names = attributeNames(original);
    for (auto const& name : names.split('\0'))
        if (name.startsWith("user.") || (name == accessList && groupKept))
            copyAttribute(file, original, name.constData());
    return true;
}
