#include "app/InstanceServer.h"

#include "app/SocketPeer.h"

#include <QLocalSocket>
#include <QPointer>

#include <algorithm>

using namespace SingleApplicationFrames;

namespace {

constexpr qsizetype maximumClients = 64;
constexpr quint64 maximumAnnounced = 4 * maximumMessageSize; // of all clients together
constexpr int tickMs = 500;
constexpr int maximumTicks = 6;

} // namespace

InstanceServer::InstanceServer(QString const& serverName, SingleApplication::Modes options)
    : serverName(serverName.toLatin1()), options(options) {
    server.setSocketOptions(options & SingleApplication::PerUser ? QLocalServer::UserAccessOption
                                                                 : QLocalServer::WorldAccessOption);
    clock.setInterval(tickMs);
    connect(&clock, &QTimer::timeout, this, &InstanceServer::dropHangingClients);
    connect(&server, &QLocalServer::newConnection, this, &InstanceServer::slotConnectionEstablished);
}

InstanceServer::~InstanceServer() {
    stop();
}

bool InstanceServer::listen(QString const& path) {
    QLocalServer::removeServer(path);
    return server.listen(path);
}

void InstanceServer::stop() {
    server.close();
    clock.stop();
    for (QLocalSocket* client : connections.keys()) {
        drop(client);
    }
}

void InstanceServer::slotConnectionEstablished() {
    while (QLocalSocket* client = server.nextPendingConnection()) {
        if ((options & SingleApplication::PerUser) && !SocketPeer::isOfThisUser(*client)) {
            client->abort();
            client->deleteLater();
            continue;
        }
        makeRoom();
        client->setReadBufferSize(headerSize);
        connections.insert(client, ConnectionInfo{.activity = ++activity});
        if (!clock.isActive()) {
            clock.start();
        }
        QPointer<QLocalSocket> const guard(client);
        connect(client, &QLocalSocket::readyRead, this, [this, client] { readLater(client); });
        connect(client, &QLocalSocket::aboutToClose, this, [this, client] { slotClientConnectionClosed(client); });
        connect(
            client, &QLocalSocket::disconnected, this,
            [this, guard] {
                if (guard) {
                    drop(guard);
                }
            },
            Qt::QueuedConnection);
    }
}

// A start says all that it has to say at once, so whoever has been quiet for the longest time is the one to go.
void InstanceServer::makeRoom() {
    if (connections.size() < maximumClients) {
        return;
    }
    auto const quietest = std::min_element(connections.cbegin(), connections.cend(),
                                           [](auto const& a, auto const& b) { return a.activity < b.activity; });
    drop(quietest.key());
}

// Queued, because a receiver of our signals may run an event loop of its own, in which the client goes. The socket must
// not be in the middle of a signal then.
void InstanceServer::readLater(QLocalSocket* client) {
    QPointer<QLocalSocket> const guard(client);
    QMetaObject::invokeMethod(
        this,
        [this, guard] {
            if (guard) {
                readAvailable(guard);
            }
        },
        Qt::QueuedConnection);
}

void InstanceServer::readAvailable(QLocalSocket* client) {
    bool progress = true;
    while (progress && connections.contains(client)) {
        switch (connections.value(client).stage) {
        case ConnectionStage::AwaitingInitHeader:
            progress = readMessageHeader(client, ConnectionStage::AwaitingInitBody, maximumInitSize);
            break;
        case ConnectionStage::AwaitingInitBody: progress = readInitMessageBody(client); break;
        case ConnectionStage::AwaitingMessageHeader:
            progress = readMessageHeader(client, ConnectionStage::AwaitingMessageBody, maximumMessageSize);
            break;
        case ConnectionStage::AwaitingMessageBody: progress = slotDataAvailable(client); break;
        }
    }
}

bool InstanceServer::readMessageHeader(QLocalSocket* client, ConnectionStage nextStage, quint64 maximumLength) {
    std::optional<quint64> const length = readHeader(*client);
    if (!length) {
        return false;
    }
    if (*length > maximumLength || *length > maximumAnnounced - announcedLength()) {
        drop(client);
        return false;
    }
    ConnectionInfo& info = connections[client];
    info.messageLength = *length;
    info.stage = nextStage;
    info.activity = ++activity;
    client->setReadBufferSize(std::max(static_cast<qint64>(*length), headerSize)); // 0 would be no bound
    if (!writeAck(client)) {
        drop(client);
        return false;
    }
    return true;
}

bool InstanceServer::isFrameComplete(QLocalSocket* client) const {
    return static_cast<quint64>(client->bytesAvailable()) >= connections.value(client).messageLength;
}

bool InstanceServer::readInitMessageBody(QLocalSocket* client) {
    if (!isFrameComplete(client)) {
        return false;
    }
    ConnectionInfo& info = connections[client];
    auto const message = decodeInitMessage(client->read(static_cast<qint64>(info.messageLength)));
    // Other programs may connect to the name.
    if (!message || message->serverName != serverName) {
        drop(client);
        return false;
    }
    info.instanceId = message->instanceId;
    info.stage = ConnectionStage::AwaitingMessageHeader;
    info.ticks = 0;
    client->setReadBufferSize(headerSize);
    readLater(client);
    QPointer<QLocalSocket> const guard(client);
    if (message->type == ConnectionType::FreshStart ||
        (message->type == ConnectionType::SecondaryStart && (options & SingleApplication::NotifySecondaryStarts))) {
        emit instanceStarted();
    }
    if (guard && !writeAck(client)) {
        drop(client);
    }
    return false;
}

// One message in a turn of the event loop: a client that never stops must not keep the loop to itself.
bool InstanceServer::slotDataAvailable(QLocalSocket* client) {
    if (!isFrameComplete(client)) {
        return false;
    }
    ConnectionInfo& info = connections[client];
    QByteArray const message = client->read(static_cast<qint64>(info.messageLength));
    quint32 const instanceId = info.instanceId;
    info.stage = ConnectionStage::AwaitingMessageHeader;
    info.ticks = 0;
    client->setReadBufferSize(headerSize);
    // A client that has gone opens its files itself, and one that is not answered keeps its message.
    if (!isTakeable(message) || !writeAck(client)) {
        drop(client);
        return false;
    }
    readLater(client);
    emit receivedMessage(instanceId, message);
    return false;
}

void InstanceServer::slotClientConnectionClosed(QLocalSocket* client) {
    connections.remove(client);
    if (connections.isEmpty()) {
        clock.stop();
    }
}

// Counts turns of the clock and not time: while our own loop stands still, nobody is late. Between messages a client
// may be as quiet as it likes.
void InstanceServer::dropHangingClients() {
    for (QLocalSocket* client : connections.keys()) {
        ConnectionInfo& info = connections[client];
        bool const resting = info.stage == ConnectionStage::AwaitingMessageHeader && client->bytesAvailable() == 0;
        info.ticks = resting ? 0 : info.ticks + 1;
        if (info.ticks > maximumTicks) {
            drop(client);
        }
    }
}

void InstanceServer::drop(QLocalSocket* client) {
    slotClientConnectionClosed(client);
    client->disconnect(this);
    client->abort();
    client->deleteLater();
}

quint64 InstanceServer::announcedLength() const {
    quint64 sum = 0;
    for (ConnectionInfo const& info : connections) {
        sum += info.stage == ConnectionStage::AwaitingMessageBody ? info.messageLength : 0;
    }
    return sum;
}

bool InstanceServer::writeAck(QLocalSocket* client) {
    if (client->state() == QLocalSocket::ConnectedState) {
        client->putChar(acknowledgement);
        client->flush();
    }
    // A client that has gone, or does not read, leaves the byte with us.
    return client->state() == QLocalSocket::ConnectedState && client->bytesToWrite() == 0;
}
