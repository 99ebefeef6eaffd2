#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <string_view>

/// Replaces a file as a whole or not at all: the bytes go to a file without a name in the target's directory, which
/// takes the target's place in one step when all of them have reached the disk. Whatever fails, and whenever the
/// process dies, the target stays as it was. A symbolic link is followed: its target is replaced and the link stays.
/// An existing target hands down its mode, its access list and user attributes and, where the system allows it, its
/// owner and group.
class AtomicFileWriter {
public:
    explicit AtomicFileWriter(QString const& path);
    /// Without a commit before, drops what was written.
    ~AtomicFileWriter();
    AtomicFileWriter(AtomicFileWriter const&) = delete;
    AtomicFileWriter& operator=(AtomicFileWriter const&) = delete;

    /// Refuses a target that exists and is no regular file, or that may not be written. Never waits for a device.
    bool open();
    /// True if all bytes were taken.
    bool write(std::string_view bytes);
    /// Puts the new file into the target's place. False if anything failed since the opening.
    bool commit();
    /// Why the last call failed, for a user; empty if nothing is known.
    QString errorString() const { return reason; }

private:
    bool fail(QString const& text);
    bool failWithErrno();
    bool followLinks();
    bool inspectTarget();
    bool openTemporary();
    bool nameTemporary();
    void startWritingToDisk();
    void discard();

    QByteArray path;      ///< of the target, all links followed
    QByteArray name;      ///< of the target in its directory
    QByteArray temporary; ///< name of the temporary file; empty while it has none
    bool targetExists = false;
    bool failed = false;
    int directory = -1;
    int file = -1;
    std::int64_t written = 0;
    std::int64_t handedToDisk = 0;
    QString reason;
};
