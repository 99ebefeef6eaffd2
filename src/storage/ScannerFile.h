#pragma once

#include "storage/FileStamp.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <sys/types.h>

/// A regular file opened for one reading from start to end.
class ScannerFile {
public:
    /// Opens nothing but a regular file whose first byte can be read: a directory cannot be read, and a pipe might wait
    /// for ever.
    explicit ScannerFile(QString const& path);
    ~ScannerFile();
    ScannerFile(ScannerFile const&) = delete;
    ScannerFile& operator=(ScannerFile const&) = delete;

    bool isOpen() const { return descriptor >= 0; }
    /// Why it is not open, or why reading has ended before the end; a sentence for the user, empty if all went well.
    QString failure() const { return failureText; }
    /// The size in bytes when the file was opened.
    std::uint64_t size() const { return bytesInFile; }
    /// Reads up to `bytes` bytes; 0 at the end of the file and after an error.
    std::size_t read(char* to, std::size_t bytes);
    /// How many bytes have come.
    std::uint64_t doneBytes() const { return bytesRead; }
    /// Of the file when it was opened; none if the system does not tell.
    std::optional<FileStamp> stamp() const { return stampAtOpening; }
    /// Whether as many bytes came as the file had when it was opened: not if it shrank, nor after an error.
    bool wasReadWhole() const { return bytesRead >= bytesInFile; }
    void close();

    /// Reads from a descriptor as read(2) does, errno included.
    using Reader = std::function<ssize_t(int descriptor, void* to, std::size_t bytes)>;
    /// Replaces the reading of all files, so that tests can hold or break a load at any byte. It is called on the
    /// threads of loads; to be set while none runs. An empty function restores it.
    static void setReader(Reader newReader);

private:
    void fail(int error);

    int descriptor = -1;
    std::uint64_t bytesInFile = 0;
    std::uint64_t bytesRead = 0;
    QString failureText;
    std::optional<FileStamp> stampAtOpening;
};
