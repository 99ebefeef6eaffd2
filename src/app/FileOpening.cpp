#include "app/FileOpening.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>

#include <sys/stat.h>

QString reasonAgainstOpening(QString const& path) {
    QFileInfo const info(path);
    if (!info.exists()) {
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
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

bool isWritableFile(QString const& path) {
    QFile file(path);
    return file.open(QIODevice::Append);
}
