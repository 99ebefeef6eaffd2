#include "app/SingleApplicationPrivate.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QRandomGenerator>
#include <QThread>

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

SingleApplicationPrivate::SingleApplicationPrivate(SingleApplication* q, SingleApplication::Modes options,
                                                   QString const& userData)
    : q(q), options(options) {
    if (!userData.isEmpty()) {
        appData.append(userData);
    }
    blockServerName = genBlockServerName();
}

SingleApplicationPrivate::~SingleApplicationPrivate() {
    if (!server) {
        return;
    }
    // The clients belong to the server and must not report their end to an object that is going.
    for (QLocalSocket* client : connections.keys()) {
        client->disconnect(this);
    }
    server.reset();
    if (memory.lock()) {
        block()->clearPrimary();
        memory.unlock();
    }
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

void SingleApplicationPrivate::attachAndRelease() {
    if (memory.attach()) {
        memory.detach();
    }
}

void SingleApplicationPrivate::openBlock() {
    randomSleep();
    memory.setKey(blockServerName);
    // The memory is of the System V kind, which outlives a process that crashed. Whoever lets it go last removes it,
    // so one attachment and release clears what a crash has left. The same object goes on: a second one would remove
    // the semaphore of the lock in its destructor while another start may hold it.
    attachAndRelease();
    // A block may go away between the two calls, when the one process that was attached lets it go.
    constexpr int attempts = 5;
    for (int attempt = 1;; ++attempt) {
        if (memory.create(sizeof(InstanceBlock))) {
            if (!memory.lock()) {
                qCritical("SingleApplication: Unable to lock memory block after create.");
                abortSafely();
            }
            block()->initialise();
            return;
        }
        if (memory.error() != QSharedMemory::AlreadyExists) {
            qCritical("SingleApplication: Unable to create block.");
            abortSafely();
        }
        if (attempt == 1) {
            // The attachment above finds nothing while the key has no file, as after a clean-up of the temporary
            // folder; the attempt to create has made one, which may lead to an abandoned block after all. And two
            // starts that attach at the same moment keep the block from each other's release: the sleep lets them part.
            randomSleep();
            attachAndRelease();
            continue;
        }
        if (memory.attach()) {
            break;
        }
        if (memory.error() != QSharedMemory::NotFound || attempt == attempts) {
            qCritical("SingleApplication: Unable to attach to shared memory block.");
            abortSafely();
        }
    }
    if (!memory.lock()) {
        qCritical("SingleApplication: Unable to lock memory block after attach.");
        abortSafely();
    }
}

void SingleApplicationPrivate::waitForConsistentBlock() {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!block()->isConsistent()) {
        if (elapsed.elapsed() > 5000) {
            qWarning("SingleApplication: Shared memory block has been in an inconsistent state from more than 5s. "
                     "Assuming primary instance failure.");
            block()->initialise();
            continue;
        }
        memory.unlock();
        randomSleep();
        if (!memory.lock()) {
            qCritical("SingleApplication: Unable to lock memory after random wait.");
            abortSafely();
        }
    }
}

InstanceBlock* SingleApplicationPrivate::block() {
    return static_cast<InstanceBlock*>(memory.data());
}

InstanceBlock SingleApplicationPrivate::readBlock() {
    memory.lock();
    InstanceBlock copy = *block();
    memory.unlock();
    return copy;
}

void SingleApplicationPrivate::startPrimary() {
    block()->setPrimary(QCoreApplication::applicationPid(), getUsername().toUtf8());
    // A crash leaves the file of its socket, and a name in use cannot be listened on.
    QLocalServer::removeServer(blockServerName);
    server = std::make_unique<QLocalServer>();
    server->setSocketOptions(options & SingleApplication::PerUser ? QLocalServer::UserAccessOption
                                                                  : QLocalServer::WorldAccessOption);
    server->listen(blockServerName);
    connect(server.get(), &QLocalServer::newConnection, this, &SingleApplicationPrivate::slotConnectionEstablished);
}

void SingleApplicationPrivate::startSecondary() {
    instanceNumber = block()->addSecondary();
}

bool SingleApplicationPrivate::connectToPrimary(int timeoutMs, ConnectionType type) {
    QDeadlineTimer const deadline(timeoutMs);
    if (!socket) {
        socket = std::make_unique<QLocalSocket>();
    }
    if (socket->state() == QLocalSocket::ConnectedState) {
        return true;
    }
    while (true) {
        socket->connectToServer(blockServerName);
        if (socket->waitForConnected(static_cast<int>(deadline.remainingTime()))) {
            break;
        }
        socket->abort();
        if (deadline.hasExpired()) {
            return false;
        }
        randomSleep();
    }
    InitMessage const message{blockServerName.toLatin1(), type, instanceNumber};
    return writeConfirmedMessage(SingleApplicationFrames::encodeInitMessage(message), deadline,
                                 SingleApplication::SendAndReturn);
}

bool SingleApplicationPrivate::writeConfirmedMessage(QByteArray const& body, QDeadlineTimer deadline,
                                                     SingleApplication::SendMode mode) {
    if (!SingleApplicationFrames::writeConfirmedMessage(*socket, body, deadline)) {
        // An acknowledgement that comes late would be taken for that of the next frame.
        socket->abort();
        return false;
    }
    if (mode == SingleApplication::SendAndWaitForPrimaryExit) {
        socket->waitForDisconnected(-1);
    }
    return true;
}

void SingleApplicationPrivate::slotConnectionEstablished() {
    while (QLocalSocket* client = server->nextPendingConnection()) {
        client->setReadBufferSize(SingleApplicationFrames::maximumMessageSize + SingleApplicationFrames::headerSize);
        connections.insert(client, ConnectionInfo());
        // Queued, because a receiver of our signals may run an event loop of its own, in which the client goes. The
        // socket must not be in the middle of a signal then.
        QPointer<QLocalSocket> const guard(client);
        auto const read = [this, guard] {
            if (guard) {
                readAvailable(guard);
            }
        };
        connect(client, &QLocalSocket::readyRead, this, read, Qt::QueuedConnection);
        connect(client, &QLocalSocket::aboutToClose, this, [this, client] { slotClientConnectionClosed(client); });
        connect(
            client, &QLocalSocket::disconnected, this,
            [this, guard] {
                if (guard) {
                    slotClientConnectionClosed(guard);
                    guard->deleteLater();
                }
            },
            Qt::QueuedConnection);
    }
}

void SingleApplicationPrivate::readAvailable(QLocalSocket* client) {
    QPointer<QLocalSocket> const guard(client);
    bool progress = true;
    while (progress && guard && connections.contains(client)) {
        switch (connections.value(client).stage) {
        case ConnectionStage::AwaitingInitHeader:
            progress =
                readMessageHeader(client, ConnectionStage::AwaitingInitBody, SingleApplicationFrames::maximumInitSize);
            break;
        case ConnectionStage::AwaitingInitBody: progress = readInitMessageBody(client); break;
        case ConnectionStage::AwaitingMessageHeader:
            progress = readMessageHeader(client, ConnectionStage::AwaitingMessageBody,
                                         SingleApplicationFrames::maximumMessageSize);
            break;
        case ConnectionStage::AwaitingMessageBody: progress = slotDataAvailable(client); break;
        }
    }
}

bool SingleApplicationPrivate::readMessageHeader(QLocalSocket* client, ConnectionStage nextStage,
                                                 quint64 maximumLength) {
    std::optional<quint64> const length = SingleApplicationFrames::readHeader(*client);
    if (!length) {
        return false;
    }
    if (*length > maximumLength) {
        client->close();
        return false;
    }
    ConnectionInfo& info = connections[client];
    info.messageLength = *length;
    info.stage = nextStage;
    writeAck(client);
    return true;
}

bool SingleApplicationPrivate::isFrameComplete(QLocalSocket* client) const {
    return static_cast<quint64>(client->bytesAvailable()) >= connections.value(client).messageLength;
}

bool SingleApplicationPrivate::readInitMessageBody(QLocalSocket* client) {
    if (!isFrameComplete(client)) {
        return false;
    }
    ConnectionInfo& info = connections[client];
    auto const message =
        SingleApplicationFrames::decodeInitMessage(client->read(static_cast<qint64>(info.messageLength)));
    // Other programs may connect to the name.
    if (!message || message->serverName != blockServerName.toLatin1()) {
        client->close();
        return false;
    }
    info.instanceId = message->instanceId;
    info.stage = ConnectionStage::AwaitingMessageHeader;

    QPointer<QLocalSocket> const guard(client);
    if (message->type == ConnectionType::FreshStart ||
        (message->type == ConnectionType::SecondaryStart && (options & SingleApplication::NotifySecondaryStarts))) {
        emit q->instanceStarted();
    }
    if (guard) {
        writeAck(client);
    }
    return true;
}

bool SingleApplicationPrivate::slotDataAvailable(QLocalSocket* client) {
    if (!isFrameComplete(client)) {
        return false;
    }
    ConnectionInfo& info = connections[client];
    QByteArray const message = client->read(static_cast<qint64>(info.messageLength));
    quint32 const instanceId = info.instanceId;
    info.stage = ConnectionStage::AwaitingMessageHeader;
    writeAck(client);
    emit q->receivedMessage(instanceId, message);
    return true;
}

void SingleApplicationPrivate::slotClientConnectionClosed(QLocalSocket* client) {
    connections.remove(client);
}

void SingleApplicationPrivate::writeAck(QLocalSocket* client) {
    if (client->state() == QLocalSocket::ConnectedState) {
        client->putChar(SingleApplicationFrames::acknowledgement);
        client->flush();
    }
}

void SingleApplicationPrivate::abortSafely() {
    qCritical().noquote() << "SingleApplication:" << memory.error() << memory.errorString();
    delete this;
    std::abort();
}
