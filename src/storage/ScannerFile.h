#pragma once

#include <cstddef>
#include <cstdint>

class QString;

/// A regular file opened for one reading from start to end.
class ScannerFile {
public:
    /// Opens nothing but a regular file: a directory cannot be read, and a pipe might wait for ever.
    explicit ScannerFile(QString const& path);
    ~ScannerFile();
    ScannerFile(ScannerFile const&) = delete;
    ScannerFile& operator=(ScannerFile const&) = delete;

    bool isOpen() const { return descriptor >= 0; }
    /// The size in bytes when the file was opened.
    std::uint64_t size() const { return bytesInFile; }
    /// Reads up to `bytes` bytes; 0 at the end of the file and after an error.
    std::size_t read(char* to, std::size_t bytes);
    /// Whether as many bytes came as the file had when it was opened: not if it shrank, nor after an error.
    bool wasReadWhole() const { return bytesRead >= bytesInFile; }
    void close();

private:
    int descriptor = -1;
    std::uint64_t bytesInFile = 0;
    std::uint64_t bytesRead = 0;
};
