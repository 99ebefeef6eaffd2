#pragma once

#include "storage/FileStamp.h"
#include "storage/SaveErrors.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <string_view>

/// Replaces a file as a whole or not at all: the bytes go to a file without a name in the target's directory, which
/// takes the target's place in one step when all of them have reached the disk. Whatever fails, and whenever the
/// process dies, the target stays as it was. A symbolic link is followed: its target is replaced and the link stays.
/// An existing target hands down owner, group, mode, access list and attributes as far as the system allows it, and
/// the new file is never open to more people than the old one.
class AtomicFileWriter {
public:
    enum class Way {
        Replace, ///< other names of the target keep the former contents
        InPlace, ///< all names get the new contents; a copy of the former ones lies beside the target meanwhile
    };
    enum class Outcome {
        Unfinished,
        Saved,
        Failed,
        TargetChanged, ///< the target is another one than the expected; it was left alone
    };
    struct Options {
        Way way = Way::Replace;
        /// The target as it was read or written last. Compared right before it is replaced; one that is gone is no
        /// change.
        std::optional<FileStamp> expected;
    };

    explicit AtomicFileWriter(QString const& path) : AtomicFileWriter(path, Options()) {}
    AtomicFileWriter(QString const& path, Options options);
    /// Without a commit before, drops what was written.
    ~AtomicFileWriter();
    AtomicFileWriter(AtomicFileWriter const&) = delete;
    AtomicFileWriter& operator=(AtomicFileWriter const&) = delete;

    /// How many names the file at `path` has, links followed; 0 if there is none.
    static int linkCount(QString const& path);

    /// Refuses a target that exists and is no regular file, or that may not be written. Never waits for a device.
    bool open();
    /// True if all bytes were taken.
    bool write(std::string_view bytes);
    /// Puts the new file into the target's place. False if anything failed since the opening.
    bool commit();
    Outcome outcome() const { return result; }
    /// Why the last call failed: a sentence for a user.
    QString errorString() const { return reason; }
    /// Sentences on what the saved file has not got of the former one, and on what was left behind.
    QStringList notKept() const { return remarks; }
    /// The saved file, to be expected by the next save.
    std::optional<FileStamp> stamp() const { return saved; }

private:
    bool fail(QString const& text);
    bool failWithErrno(SaveObject about);
    bool followLinks();
    bool inspectTarget();
    bool openTemporary();
    bool openNamed();
    bool nameTemporary();
    bool copyToNamed();
    bool inheritAndSync();
    bool targetIsExpected();
    bool takePlace();
    bool renameTemporary();
    bool isInPlace(struct stat const& status) const;
    bool writeInPlace();
    bool makeBackup(int target);
    bool replaceContents(int target);
    void restoreBackup(int target, struct stat const& former);
    void syncDirectory();
    void startWritingToDisk();
    void discard();

    QByteArray path; ///< of the target, all links followed
    Options options;
    QByteArray name;      ///< of the target in its directory
    QByteArray temporary; ///< name of the temporary file; empty while it has none
    QByteArray backup;    ///< name of the copy of the former contents
    bool targetExists = false;
    bool failed = false;
    int directory = -1;
    int file = -1;
    std::int64_t written = 0;
    std::int64_t handedToDisk = 0;
    Outcome result = Outcome::Unfinished;
    QString reason;
    QStringList remarks;
    std::optional<FileStamp> saved;
};
