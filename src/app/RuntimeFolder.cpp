#include "app/RuntimeFolder.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// What comes behind the folder in the path of a socket, which the system limits: 44 characters and their suffix.
constexpr qsizetype longestName = sizeof("/0123456789012345678901234567890123456789abcd-2");
constexpr qsizetype longestPath = sizeof(sockaddr_un::sun_path) - longestName;

QString sessionsFolder = QStringLiteral("/run/user");

bool isPrivate(struct stat const& info) {
    return S_ISDIR(info.st_mode) && info.st_uid == geteuid() && (info.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

QStringList candidates(bool perUser) {
    QString const common = QDir::tempPath() + QStringLiteral("/gridwright");
    if (!perUser) {
        return {common};
    }
    QStringList result;
    QString const user = QString::number(geteuid());
    // A start that the session's environment does not reach, as from cron, finds the same folder by its usual name.
    for (QString const& session : {qEnvironmentVariable("XDG_RUNTIME_DIR"), sessionsFolder + '/' + user}) {
        struct stat info = {};
        QString const folder = QDir::cleanPath(session) + QStringLiteral("/gridwright");
        if (session.startsWith('/') && ::stat(QFile::encodeName(session).constData(), &info) == 0 && isPrivate(info) &&
            !result.contains(folder)) {
            result.append(folder);
        }
    }
    QString const own = common + '-' + user;
    return result << own << own + "-1" << own + "-2";
}

} // namespace

RuntimeFolder::~RuntimeFolder() {
    close();
}

bool RuntimeFolder::open(bool perUser) {
    close();
    shared = !perUser;
    for (QString const& candidate : candidates(perUser)) {
        if (openAt(candidate)) {
            return true;
        }
    }
    return false;
}

void RuntimeFolder::setSessionsFolder(QString const& folder) {
    sessionsFolder = folder;
}

void RuntimeFolder::close() {
    if (folder >= 0) {
        ::close(folder); // with its lock
        folder = -1;
    }
}

bool RuntimeFolder::openAt(QString const& candidate) {
    QByteArray const name = QFile::encodeName(candidate);
    if (name.size() > longestPath) {
        return false;
    }
    mode_t const forAll = S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;
    bool const made = ::mkdir(name.constData(), S_IRWXU) == 0;
    folder = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) {
        return false;
    }
    struct stat info = {};
    bool const fits = shared ? !made || ::fchmod(folder, forAll) == 0 : ::fstat(folder, &info) == 0 && isPrivate(info);
    if (!fits) {
        close();
        return false;
    }
    path = candidate;
    return true;
}

bool RuntimeFolder::lock(QDeadlineTimer deadline) {
    while (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(2);
    }
    return true;
}

void RuntimeFolder::unlock() {
    ::flock(folder, LOCK_UN);
}
