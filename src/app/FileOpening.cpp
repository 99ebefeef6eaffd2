#include "app/FileOpening.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

QString reasonAgainstOpening(QString const& path) {
    QFileInfo const info(path);
    if (!info.exists()) {
        if (path.contains(QChar::ReplacementCharacter)) {
            return QObject::tr("Its name is not valid text. Rename the file to open it.");
        }
        return info.isSymLink() ? QObject::tr("It is a link to a file that does not exist.")
                                : QObject::tr("The file does not exist.");
    }
    if (info.isDir()) {
        return QObject::tr("It is a folder.");
    }
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return QObject::tr("It is not a regular file.");
    }
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        return QString();
    }
    bool const forbidden = ::access(QFile::encodeName(path).constData(), R_OK) != 0 && errno == EACCES;
    return forbidden ? QObject::tr("You have no permission to read it.") : file.errorString();
}

bool isWritableFile(QString const& path) {
    QFile file(path);
    return file.open(QIODevice::Append);
}
