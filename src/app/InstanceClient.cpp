#include "app/InstanceClient.h"

#include "app/SocketPeer.h"

#include <QRandomGenerator>
#include <QThread>

#include <sys/socket.h>
#include <utility>

using namespace SingleApplicationFrames;

namespace {

int left(QDeadlineTimer deadline) {
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

InstanceClient::InstanceClient(QString path, QString const& serverName, quint32 instanceId, bool ownUserOnly)
    : path(std::move(path)), serverName(serverName), instanceId(instanceId), ownUserOnly(ownUserOnly) {}

bool InstanceClient::connectToPrimary(QDeadlineTimer deadline, ConnectionType type) {
    while (socket.state() != QLocalSocket::ConnectedState) {
        reset();
        socket.connectToServer(path);
        if (socket.waitForConnected(left(deadline)) && (!ownUserOnly || SocketPeer::isOfThisUser(socket))) {
            add(encodeInitMessage({serverName.toLatin1(), type, instanceId}));
            primaryThere = true;
            break;
        }
        QLocalSocket::LocalSocketError const error = socket.error();
        primaryThere = error != QLocalSocket::ServerNotFoundError && error != QLocalSocket::ConnectionRefusedError;
        socket.abort();
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(8 + QRandomGenerator::global()->bounded(10));
    }
    return unfinished || writeConfirmedFrames(deadline);
}

bool InstanceClient::writeConfirmedMessage(QByteArray const& message, QDeadlineTimer deadline) {
    if (unfinished && unfinished != message) {
        reset();
    }
    if (!connectToPrimary(deadline, ConnectionType::MessageConnection)) {
        return false;
    }
    if (!unfinished) {
        add(message);
        unfinished = message;
    }
    if (!writeConfirmedFrames(deadline)) {
        return false;
    }
    unfinished.reset();
    return true;
}

bool InstanceClient::withdraw() {
    bool taken = false;
    if (unfinished && frames.size() == 1 && isFirstWritten && socket.state() == QLocalSocket::ConnectedState) {
        // From here on the primary cannot acknowledge any more. What it has acknowledged before can still be read.
        int const descriptor = static_cast<int>(socket.socketDescriptor());
        ::shutdown(descriptor, SHUT_RDWR);
        char answer = 0;
        taken = ::recv(descriptor, &answer, 1, MSG_DONTWAIT) == 1 && answer == acknowledgement;
    }
    reset();
    return taken;
}

void InstanceClient::add(QByteArray const& body) {
    frames << encodeHeader(body.size()) << body;
}

bool InstanceClient::writeConfirmedFrames(QDeadlineTimer deadline) {
    for (; !frames.isEmpty(); frames.removeFirst(), isFirstWritten = false) {
        if (!writeConfirmedFrame(frames.first(), deadline)) {
            return false;
        }
    }
    return true;
}

bool InstanceClient::writeConfirmedFrame(QByteArray const& frame, QDeadlineTimer deadline) {
    if (!isFirstWritten) {
        isFirstWritten = true;
        socket.write(frame);
        socket.flush();
    }
    // The wait also writes on what the flush could not get rid of.
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(left(deadline))) {
            if (socket.state() != QLocalSocket::ConnectedState) {
                reset();
            }
            return false;
        }
    }
    char answer = 0;
    if (socket.getChar(&answer) && answer == acknowledgement) {
        return true;
    }
    reset();
    return false;
}

void InstanceClient::reset() {
    socket.abort();
    frames.clear();
    isFirstWritten = false;
    unfinished.reset();
}
