#include "app/SingleApplicationPrivate.h"

#include "app/InstanceBlock.h"
#include "app/InstanceClient.h"
#include "app/InstanceServer.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QRandomGenerator>
#include <QThread>

#include <cerrno>
#include <pwd.h>
#include <unistd.h>

namespace {

constexpr int lockTimeoutMs = 10000; // longer than anybody waits with the lock for something else

void complain(char const* what) {
    qCritical("SingleApplication: %s (%s)", what, qPrintable(qt_error_string(errno)));
}

} // namespace

SingleApplicationPrivate::SingleApplicationPrivate(SingleApplication* q, SingleApplication::Modes options,
                                                   QString const& userData)
    : q(q), options(options) {
    if (!userData.isEmpty()) {
        appData.append(userData);
    }
    blockServerName = genBlockServerName();
}

SingleApplicationPrivate::~SingleApplicationPrivate() {
    server.reset();
    leave();
}

QString SingleApplicationPrivate::getUsername() {
    if (passwd const* record = getpwuid(geteuid())) {
        return QString::fromLocal8Bit(record->pw_name);
    }
    return qEnvironmentVariable("USER");
}

void SingleApplicationPrivate::randomSleep() {
    QThread::msleep(8 + QRandomGenerator::global()->bounded(10));
}

QString SingleApplicationPrivate::genBlockServerName() const {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView("SingleApplication"));
    hash.addData(QCoreApplication::applicationName().toUtf8());
    hash.addData(QCoreApplication::organizationName().toUtf8());
    hash.addData(QCoreApplication::organizationDomain().toUtf8());
    hash.addData(appData.join(QString()).toUtf8());
    if (!(options & SingleApplication::IgnoreVersion)) {
        hash.addData(QCoreApplication::applicationVersion().toUtf8());
    }
    if (!(options & SingleApplication::IgnorePath)) {
        // An AppImage is mounted at a new path on every start.
        hash.addData(qEnvironmentVariable("APPIMAGE", QCoreApplication::applicationFilePath()).toUtf8());
    }
    if (options & SingleApplication::PerUser) {
        hash.addData(getUsername().toUtf8());
    }
    // The name becomes a file name of the socket.
    return QString::fromLatin1(hash.result().toBase64().replace('/', '_'));
}

QStringList SingleApplicationPrivate::names() const {
    return {blockServerName, blockServerName + "-1", blockServerName + "-2"};
}

void SingleApplicationPrivate::enter(Record record) {
    randomSleep();
    role = InstanceRole::Alone;
    if (!folder.open(isPerUser())) {
        complain("No folder for the block.");
    } else if (!lock()) {
        complain("Unable to lock memory block.");
    } else {
        Search const search = findPrimary(record);
        if (search == Search::Found) {
            role = InstanceRole::Secondary;
        } else if (search == Search::NotFound && becomePrimary()) {
            role = InstanceRole::Primary;
        }
        folder.unlock();
    }
    if (role == InstanceRole::Alone) {
        qCritical("SingleApplication: Starting without the service. Other starts will not find this one.");
    }
}

void SingleApplicationPrivate::leave() {
    client.reset();
    if (server) {
        server->stop();
        // It may be in the middle of a signal.
        server.release()->deleteLater();
    }
    if (memory.isAttached() && lock()) {
        if (role == InstanceRole::Primary && memory.data()->primaryPid == QCoreApplication::applicationPid()) {
            memory.data()->clearPrimary();
        }
        memory.release(folder);
        folder.unlock();
    }
    role = InstanceRole::Alone;
}

bool SingleApplicationPrivate::lock() {
    return folder.lock(QDeadlineTimer(lockTimeoutMs));
}

// Attaching to a name that nobody holds clears what a crash has left.
SingleApplicationPrivate::Search SingleApplicationPrivate::findPrimary(Record record) {
    for (QString const& name : names()) {
        SharedBlock::Result const result = memory.attach(folder, name);
        if (result == SharedBlock::Result::Failed) {
            complain("Unable to attach to shared memory block.");
            return Search::Failed;
        }
        if (result != SharedBlock::Result::Attached) {
            continue;
        }
        if (!waitForConsistentBlock()) {
            complain("Unable to lock memory after random wait.");
            return Search::Failed;
        }
        if (memory.data()->primary && (record == Record::Believed || isAnswered(name))) {
            startSecondary(name);
            return Search::Found;
        }
        memory.release(folder);
    }
    return Search::NotFound;
}

bool SingleApplicationPrivate::becomePrimary() {
    for (QString const& name : names()) {
        SharedBlock::Result const result = memory.create(folder, name);
        if (result == SharedBlock::Result::Attached && startPrimary(name)) {
            return true;
        }
        if (result == SharedBlock::Result::Foreign) {
            qWarning("SingleApplication: A name is taken by something else: %s", qPrintable(folder.filePath(name)));
        } else {
            complain("Unable to create block.");
        }
        memory.release(folder);
    }
    return false;
}

bool SingleApplicationPrivate::waitForConsistentBlock() {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!memory.data()->isConsistent()) {
        if (elapsed.elapsed() > 5000) {
            qWarning("SingleApplication: Shared memory block has been in an inconsistent state from more than 5s. "
                     "Assuming primary instance failure.");
            memory.data()->initialise();
            break;
        }
        folder.unlock();
        randomSleep();
        if (!lock()) {
            return false;
        }
    }
    return true;
}

InstanceBlock SingleApplicationPrivate::readBlock() {
    InstanceBlock copy;
    copy.initialise();
    if (memory.isAttached() && lock()) {
        copy = *memory.data();
        folder.unlock();
    }
    return copy;
}

bool SingleApplicationPrivate::startPrimary(QString const& name) {
    server = std::make_unique<InstanceServer>(name, options);
    if (!server->listen(folder.filePath(name))) {
        server.reset();
        return false;
    }
    QObject::connect(server.get(), &InstanceServer::instanceStarted, q, &SingleApplication::instanceStarted);
    QObject::connect(server.get(), &InstanceServer::receivedMessage, q, &SingleApplication::receivedMessage);
    memory.data()->setPrimary(QCoreApplication::applicationPid(), getUsername().toUtf8());
    instanceNumber = 0;
    return true;
}

void SingleApplicationPrivate::startSecondary(QString const& name) {
    instanceNumber = memory.data()->addSecondary();
    client = std::make_unique<InstanceClient>(folder.filePath(name), name, instanceNumber, isPerUser());
}

// A process that is alive has its socket open, however busy it is, and a dead one has not.
bool SingleApplicationPrivate::isAnswered(QString const& name) const {
    constexpr int timeoutMs = 100;
    QLocalSocket socket;
    socket.connectToServer(folder.filePath(name));
    return socket.waitForConnected(timeoutMs) || (socket.error() != QLocalSocket::ServerNotFoundError &&
                                                  socket.error() != QLocalSocket::ConnectionRefusedError);
}
