#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <cstddef>

/// The block of shared memory in which the starts of the program find each other, as it lies there: native byte
/// order, padding zero. Read and write it under the lock of its QSharedMemory only, and seal() after each change.
struct InstanceBlock {
    quint8 primary;        ///< 1 while a primary lives, otherwise 0.
    quint32 secondary;     ///< How many secondaries have started so far.
    qint64 primaryPid;     ///< Process id of the primary; -1 if there is none.
    char primaryUser[128]; ///< Name of the user of the primary, UTF-8, zero-terminated.
    quint16 checksum;      ///< qChecksum over all bytes before it.

    /// Brings raw memory into the state before any start, sealed.
    void initialise();
    /// Records a living primary and seals. A user name above 127 bytes is cut.
    void setPrimary(qint64 pid, QByteArray const& user);
    /// Takes the record of the primary back and seals.
    void clearPrimary();
    /// Counts one more secondary and seals; the new count.
    quint32 addSecondary();

    /// Whether the stored checksum fits the contents.
    bool isConsistent() const;
    /// Stores the checksum of the contents.
    void seal();

private:
    quint16 computeChecksum() const;
};

static_assert(sizeof(InstanceBlock) == 152);
static_assert(offsetof(InstanceBlock, primary) == 0);
static_assert(offsetof(InstanceBlock, secondary) == 4);
static_assert(offsetof(InstanceBlock, primaryPid) == 8);
static_assert(offsetof(InstanceBlock, primaryUser) == 16);
static_assert(offsetof(InstanceBlock, checksum) == 144);
