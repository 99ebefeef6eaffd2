#include "storage/ScannerFile.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

ScannerFile::Reader reader = ::read;

QString sentence(int error) {
    auto const tr = [](char const* text) { return QCoreApplication::translate("ScannerFile", text); };
    switch (error) {
    case ENOENT: return tr("The file does not exist.");
    case EACCES: return tr("You have no permission to read it.");
    case EISDIR: return tr("It is a folder.");
    default: return qt_error_string(error) + QLatin1Char('.');
    }
}

} // namespace

ScannerFile::ScannerFile(QString const& path) {
    descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat status {};
    char first = 0;
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
        fail(errno);
    } else if (S_ISDIR(status.st_mode)) {
        fail(EISDIR);
    } else if (!S_ISREG(status.st_mode)) {
        failureText = QCoreApplication::translate("ScannerFile", "It is not a regular file.");
        close();
    } else if (::pread(descriptor, &first, 1, 0) < 0) {
        fail(errno);
    } else {
        bytesInFile = static_cast<std::uint64_t>(status.st_size);
        stampAtOpening = FileStamp::of(status);
        posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
}

ScannerFile::~ScannerFile() {
    close();
}

void ScannerFile::setReader(Reader newReader) {
    reader = newReader ? std::move(newReader) : Reader(::read);
}

void ScannerFile::fail(int error) {
    failureText = sentence(error);
    close();
}

std::size_t ScannerFile::read(char* to, std::size_t bytes) {
    for (;;) {
        auto const came = reader(descriptor, to, bytes);
        if (came > 0) {
            bytesRead += static_cast<std::uint64_t>(came);
            return static_cast<std::size_t>(came);
        }
        if (came < 0 && errno == EINTR)
            continue;
        if (came < 0)
            failureText = sentence(errno);
        else if (!wasReadWhole())
            failureText = QCoreApplication::translate("ScannerFile", "It became shorter while it was read.");
        return 0;
    }
}

void ScannerFile::close() {
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}
