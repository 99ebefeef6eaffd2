#include "storage/SaveErrors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>

namespace {

/// %1 is the file, %2 its folder.
struct Row {
    int error;
    char const* aboutFile;
    char const* aboutFolder;
};

constexpr auto noFolder = "There is no folder %2.";
constexpr auto fileGone = "The file %1 is no longer there.";
constexpr auto fileForbidden = "The file %1 may not be written.";
constexpr auto folderForbidden = "The folder %2 may not be written.";
constexpr auto notReplaced = "The file %1 may not be replaced.";
constexpr auto readOnly = "The disk that holds %2 can only be read.";
constexpr auto diskFull = "No space is left on the disk that holds %2.";
constexpr auto quota = "No more may be written to the disk that holds %2: your share of it is used up.";
constexpr auto diskFault = "The disk that holds %2 has failed.";
constexpr auto silent = "The disk that holds %2 does not answer.";
constexpr auto tooLarge = "The file %1 would be larger than it may be.";
constexpr auto nameTooLong = "The name of the file %1 is too long.";
constexpr auto notAFolder = "%2 is not a folder.";
constexpr auto circle = "The symbolic link %1 leads back to itself.";
constexpr auto invalid = "%1 cannot be the name of a file.";
constexpr auto interrupted = "The system interrupted the save of %1 again and again.";
constexpr auto unsupported = "The disk that holds %2 cannot do what a save needs.";
constexpr auto manyFiles = "The file %1 could not be saved: too many files are open.";
constexpr auto noMemory = "There is not enough memory to save the file %1.";
constexpr auto running = "The file %1 is in use as a program.";
constexpr auto unfinished = "The file %1 could not be written completely.";

constexpr std::array rows = {
    Row{0, unfinished, unfinished},
    Row{EACCES, fileForbidden, folderForbidden},
    Row{EPERM, notReplaced, notReplaced},
    Row{EROFS, readOnly, readOnly},
    Row{ENOENT, fileGone, noFolder},
    Row{ENOTDIR, notAFolder, notAFolder},
    Row{ENOSPC, diskFull, diskFull},
    Row{EDQUOT, quota, quota},
    Row{EIO, diskFault, diskFault},
    Row{ENXIO, diskFault, diskFault},
    Row{ENODEV, diskFault, diskFault},
    Row{EFBIG, tooLarge, tooLarge},
    Row{ENAMETOOLONG, nameTooLong, nameTooLong},
    Row{ELOOP, circle, circle},
    Row{EINVAL, invalid, unsupported},
    Row{EINTR, interrupted, interrupted},
    Row{EOPNOTSUPP, unsupported, unsupported},
    Row{ENOSYS, unsupported, unsupported},
    Row{EMFILE, manyFiles, manyFiles},
    Row{ENFILE, manyFiles, manyFiles},
    Row{ENOMEM, noMemory, noMemory},
    Row{ETXTBSY, running, running},
    Row{ESTALE, silent, silent},
    Row{ETIMEDOUT, silent, silent},
    Row{EHOSTDOWN, silent, silent},
    Row{ENOTCONN, silent, silent},
};

} // namespace

QByteArray folderOfPath(QByteArray const& path) {
    auto const slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

QString pathForUser(QByteArray const& path) {
    auto const name = QFile::decodeName(path);
    return QDir::isAbsolutePath(name) ? name : QDir::cleanPath(QFileInfo(name).absoluteFilePath());
}

QString saveErrorSentence(int error, SaveObject about, QByteArray const& path) {
    auto const file = pathForUser(path), folder = pathForUser(folderOfPath(path));
    auto const row = std::find_if(rows.begin(), rows.end(), [&](Row const& each) { return each.error == error; });
    if (row == rows.end())
        return QStringLiteral("The file %1 could not be saved: %2.").arg(file, qt_error_string(error));
    auto const text = QString::fromLatin1(about == SaveObject::File ? row->aboutFile : row->aboutFolder);
    return text.contains(QStringLiteral("%2")) ? QString(text).replace(QStringLiteral("%2"), folder) : text.arg(file);
}
