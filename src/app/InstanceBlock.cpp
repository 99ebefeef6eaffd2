#include "app/InstanceBlock.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<InstanceBlock>);

void InstanceBlock::initialise() {
    // Not an assignment: that may leave the padding, which the checksum covers, as it was.
    std::memset(static_cast<void*>(this), 0, sizeof(InstanceBlock));
    primaryPid = -1;
    seal();
}

void InstanceBlock::setPrimary(qint64 pid, QByteArray const& user) {
    primary = 1;
    primaryPid = pid;
    std::memset(primaryUser, 0, sizeof(primaryUser));
    std::memcpy(primaryUser, user.constData(), std::min<std::size_t>(user.size(), sizeof(primaryUser) - 1));
    seal();
}

void InstanceBlock::clearPrimary() {
    primary = 0;
    primaryPid = -1;
    seal();
}

quint32 InstanceBlock::addSecondary() {
    ++secondary;
    seal();
    return secondary;
}

bool InstanceBlock::isConsistent() const {
    return checksum == computeChecksum();
}

void InstanceBlock::seal() {
    checksum = computeChecksum();
}

quint16 InstanceBlock::computeChecksum() const {
    return qChecksum(QByteArrayView(reinterpret_cast<char const*>(this), offsetof(InstanceBlock, checksum)));
}
