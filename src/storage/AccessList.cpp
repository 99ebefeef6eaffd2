#include "storage/AccessList.h"

#include <QtEndian>

#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>

namespace {

constexpr mode_t allBits = S_IRWXO;

} // namespace

mode_t modeWithoutAccessList(QByteArray const& list, mode_t mode) {
    constexpr auto headerSize = sizeof(posix_acl_xattr_header), entrySize = sizeof(posix_acl_xattr_entry);
    mode_t const private_ = mode & ~(S_IRWXG | S_IRWXO);
    std::size_t const size = list.size();
    if (size < headerSize || (size - headerSize) % entrySize != 0 ||
        qFromLittleEndian<quint32>(list.constData()) != POSIX_ACL_XATTR_VERSION)
        return private_;
    mode_t group = 0, mask = allBits, users = allBits, groups = allBits;
    bool namesUsers = false, namesGroups = false;
    for (auto at = headerSize; at < size; at += entrySize) {
        auto const* const entry = list.constData() + at;
        auto const rights = qFromLittleEndian<quint16>(entry + 2) & allBits;
        switch (qFromLittleEndian<quint16>(entry)) {
        case ACL_USER: users &= rights, namesUsers = true; break;
        case ACL_GROUP: groups &= rights, namesGroups = true; break;
        case ACL_GROUP_OBJ: group = rights; break;
        case ACL_MASK: mask = rights; break;
        default: break;
        }
    }
    // People with an entry of their own fall back to the group or to the others.
    users &= namesUsers ? mask : allBits;
    groups &= namesGroups ? mask : allBits;
    return private_ | (group & mask & users) << 3 | (mode & S_IRWXO & users & groups);
}
