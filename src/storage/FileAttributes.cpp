#include "storage/FileAttributes.h"

#include "storage/AccessList.h"
#include "storage/FileCalls.h"
#include "storage/SaveErrors.h"

#include <QList>

#include <cstring>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr mode_t allModeBits = 07777;
constexpr mode_t othersBits = S_IRWXG | S_IRWXO;

/// Reads an attribute, or the list of them, by `read(buffer, size)`. None if that fails, with errno set.
template <typename Read>
std::optional<QByteArray> attribute(Read const& read) {
    constexpr auto largest = 1 << 16; // of the kernel
    QByteArray bytes(largest, '\0');
    auto const size = uninterrupted([&] { return read(bytes.data(), largest); });
    if (size < 0)
        return std::nullopt;
    bytes.truncate(size);
    return bytes;
}

std::optional<QByteArray> attributeOf(QByteArray const& path, char const* name) {
    return attribute([&](char* to, std::size_t size) { return getxattr(path.constData(), name, to, size); });
}

std::optional<QByteArray> attributeOf(int file, char const* name) {
    return attribute([&](char* to, std::size_t size) { return fgetxattr(file, name, to, size); });
}

bool setAttribute(int file, char const* name, QByteArray const& value) {
    return uninterrupted([&] { return fsetxattr(file, name, value.constData(), value.size(), 0); }) == 0;
}

/// Whether the last call failed since there is nothing of the kind.
bool hasNone() {
    return errno == ENODATA || errno == EOPNOTSUPP || errno == ENOSYS;
}

bool isAccessListOfAnotherKind(QByteArray const& name) {
    return name.startsWith("system.") && !name.startsWith("system.posix_acl_");
}

class Inheritance {
public:
    Inheritance(int newFile, QByteArray const& oldPath, struct stat const& oldStatus, struct stat const& newStatus)
        : file(newFile), original(oldPath), old(oldStatus), mode(old.st_mode & allModeBits) {
        bool const groupKept = give(old.st_gid == newStatus.st_gid, -1, old.st_gid, "group");
        bool const ownerKept = give(old.st_uid == newStatus.st_uid, old.st_uid, -1, "owner");
        inheritAccessList(groupKept);
        inheritAttributes();
        // Another group must not gain what the old one had, nor the old one what the others had. No program starts to
        // run as somebody else.
        if (!groupKept) {
            auto const shared = (mode >> 3) & mode & S_IRWXO;
            mode = (mode & ~(othersBits | S_ISGID)) | shared << 3 | shared;
        }
        if (!ownerKept)
            mode &= ~S_ISUID;
    }

    /// What is there in the end counts, whatever the calls have returned. False with errno set.
    bool inheritMode() {
        struct stat status;
        if (fstat(file, &status) != 0)
            return false;
        if ((status.st_mode & allModeBits) != mode) {
            uninterrupted([&] { return fchmod(file, mode); });
            if (fstat(file, &status) != 0)
                return false;
        }
        auto const given = status.st_mode & allModeBits;
        result.opensMore = result.opensMore || (given & ~mode) != 0;
        if (given != (old.st_mode & allModeBits) && !listLost)
            tell(QStringLiteral("The permissions of %1 could not be kept: fewer people may use the file now."));
        return true;
    }

    InheritedAttributes result;

private:
    void tell(QString const& sentence) { result.notKept.append(sentence.arg(pathForUser(original))); }

    /// Some systems only pretend to change it, so that the file is looked at.
    bool give(bool same, uid_t owner, gid_t group, char const* what) {
        struct stat status;
        if (same || (uninterrupted([&] { return fchown(file, owner, group); }) == 0 && fstat(file, &status) == 0 &&
                     (owner == uid_t(-1) || status.st_uid == owner) && (group == gid_t(-1) || status.st_gid == group)))
            return true;
        tell(QStringLiteral("The %1 of %2 could not be kept.").arg(QLatin1String(what), QStringLiteral("%1")));
        return false;
    }

    void inheritAccessList(bool groupKept) {
        auto const list = attributeOf(original, accessListAttribute);
        bool const has = list || !hasNone();
        listKept = list && groupKept && setAttribute(file, accessListAttribute, *list);
        if (listKept)
            return;
        // The folder may have given the new file a list of its own.
        if (uninterrupted([&] { return fremovexattr(file, accessListAttribute); }) != 0 && errno != ENODATA)
            result.opensMore = attributeOf(file, accessListAttribute) || !hasNone();
        if (has)
            loseAccessList(list);
    }

    void loseAccessList(std::optional<QByteArray> const& list) {
        listLost = true;
        mode = list ? modeWithoutAccessList(*list, mode) : mode & ~othersBits;
        tell(QStringLiteral("The access list of %1 could not be kept: fewer people may use the file now."));
    }

    /// Label and list of a file that no longer has them are the system's own; "trusted." belongs to other programs.
    void inheritAttributes() {
        auto const names =
            attribute([&](char* to, std::size_t size) { return listxattr(original.constData(), to, size); });
        if (!names) {
            if (!hasNone())
                tell(QStringLiteral("The attributes of %1 could not be kept."));
            return;
        }
        QStringList lost;
        for (auto const& name : names->split('\0')) {
            if (name == accessListAttribute && !listKept && !listLost)
                loseAccessList({}); // it is there after all
            bool const isList = isAccessListOfAnotherKind(name);
            if ((!isList && !name.startsWith("user.") && name != "security.selinux") || inherits(name))
                continue;
            lost.append(QString::fromUtf8(name));
            mode &= isList ? ~othersBits : allModeBits;
        }
        if (!lost.isEmpty())
            tell(QStringLiteral("Attributes of %1 could not be kept: ") + lost.join(QStringLiteral(", ")) + '.');
    }

    bool inherits(QByteArray const& name) {
        auto const value = attributeOf(original, name.constData());
        if (!value)
            return errno == ENODATA;
        return attributeOf(file, name.constData()) == value || setAttribute(file, name.constData(), *value);
    }

    int file;
    QByteArray const& original;
    struct stat const& old;
    mode_t mode; ///< what the new file may have at most
    bool listKept = false;
    bool listLost = false;
};

} // namespace

std::optional<InheritedAttributes> inheritFileAttributes(int file, QByteArray const& original) {
    struct stat old, now;
    if (stat(original.constData(), &old) != 0 || fstat(file, &now) != 0)
        return std::nullopt;
    Inheritance inheritance(file, original, old, now);
    if (!inheritance.inheritMode())
        return std::nullopt;
    return inheritance.result;
}
