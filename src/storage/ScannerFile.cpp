#include "storage/ScannerFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

ScannerFile::ScannerFile(QString const& path) {
    descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat status {};
    if (descriptor < 0)
        return;
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close();
        return;
    }
    bytesInFile = static_cast<std::uint64_t>(status.st_size);
    posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
}

ScannerFile::~ScannerFile() {
    close();
}

std::size_t ScannerFile::read(char* to, std::size_t bytes) {
    for (;;) {
        auto const came = ::read(descriptor, to, bytes);
        if (came >= 0) {
            bytesRead += static_cast<std::uint64_t>(came);
            return static_cast<std::size_t>(came);
        }
        if (errno != EINTR)
            return 0;
    }
}

void ScannerFile::close() {
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}
