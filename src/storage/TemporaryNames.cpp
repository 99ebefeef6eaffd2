#include "storage/TemporaryNames.h"

#include "storage/FileCalls.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSysInfo>

#include <algorithm>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int mostEntries = 10000; // a save does not wait for a folder of more
constexpr auto prefix = ".gridwright-";

/// In a folder that several machines or sandboxes share, the same id is another process.
QByteArray spaceOfIds() {
    QByteArray space(64, '\0');
    space.truncate(std::max<ssize_t>(0, readlink("/proc/self/ns/pid", space.data(), space.size())));
    return QCryptographicHash::hash(QSysInfo::machineUniqueId() + space, QCryptographicHash::Sha1).toHex().left(8);
}

/// In ticks since the machine was started; 0 if there is no such process or it is not told.
quint64 startOf(qint64 process) {
    constexpr int fieldsBehindName = 19;
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    auto const text = file.readAll();
    return text.mid(text.lastIndexOf(')') + 2).split(' ').value(fieldsBehindName).toULongLong();
}

bool isAlive(qint64 process, quint64 start) {
    if (kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
        return false;
    auto const found = startOf(process);
    return found == 0 || start == 0 || found == start;
}

} // namespace

QByteArray newTemporaryName() {
    return prefix + spaceOfIds() + '-' + QByteArray::number(getpid()) + '-' + QByteArray::number(startOf(getpid())) +
           '-' + QByteArray::number(QRandomGenerator::system()->generate64(), 36) + ".tmp";
}

bool isAbandonedName(QByteArray const& name) {
    static QRegularExpression const pattern(
        QStringLiteral("\\A\\.gridwright-([0-9a-f]{8})-([1-9][0-9]{0,8})-([0-9]{1,19})-[0-9a-z]{1,13}\\.tmp\\z"));
    auto const match = pattern.match(QString::fromLatin1(name));
    return match.hasMatch() && match.captured(1).toLatin1() == spaceOfIds() &&
           !isAlive(match.captured(2).toLongLong(), match.captured(3).toULongLong());
}

void removeAbandonedFiles(int folder) {
    int const readable = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const entries = readable < 0 ? nullptr : fdopendir(readable);
    if (entries == nullptr)
        return readable < 0 ? void() : void(close(readable));
    struct stat status;
    for (int left = mostEntries; left > 0; --left) {
        dirent const* const entry = readdir(entries);
        if (entry == nullptr)
            break;
        QByteArray const name = entry->d_name;
        if (name.startsWith(prefix) && isAbandonedName(name) &&
            fstatat(folder, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode) &&
            status.st_uid == geteuid() && status.st_nlink == 1)
            unlinkat(folder, entry->d_name, 0);
    }
    closedir(entries);
}
