#pragma once

#include "app/SingleApplication.h"
#include "app/SingleApplicationFrames.h"

#include <QHash>
#include <QLocalServer>
#include <QObject>
#include <QTimer>

class QLocalSocket;

/// What a primary waits for next from a client.
enum class ConnectionStage { AwaitingInitHeader, AwaitingInitBody, AwaitingMessageHeader, AwaitingMessageBody };

/// The primary's end of the local socket, in the main thread. A message is acknowledged when it is taken and only then,
/// and it is taken only from a client that is still there to read that.
///
/// Nobody at the other end is trusted to be a start of this program. Processes of other users are sent away; frames,
/// their fields, what all of them hold in memory together and the number of clients are bounded; and a client that
/// lets a frame hang is dropped.
class InstanceServer : public QObject {
    Q_OBJECT

public:
    InstanceServer(QString const& serverName, SingleApplication::Modes options);
    ~InstanceServer() override;

    /// Removes what a crash has left at `path` and listens there.
    bool listen(QString const& path);
    /// Sends all clients away; what they are told nothing about is not taken.
    void stop();

signals:
    void instanceStarted();
    void receivedMessage(quint32 instanceId, QByteArray message);

private:
    struct ConnectionInfo {
        ConnectionStage stage = ConnectionStage::AwaitingInitHeader;
        quint64 messageLength = 0;
        quint32 instanceId = 0;
        int ticks = 0;        ///< of the clock, for which it has kept us waiting
        quint64 activity = 0; ///< grows with time: when it last got on
    };

    void slotConnectionEstablished();
    void makeRoom();
    void readLater(QLocalSocket* client);
    void readAvailable(QLocalSocket* client);
    // The steps return whether they got on, so that there may be more to read.
    bool readMessageHeader(QLocalSocket* client, ConnectionStage nextStage, quint64 maximumLength);
    bool isFrameComplete(QLocalSocket* client) const;
    bool readInitMessageBody(QLocalSocket* client);
    bool slotDataAvailable(QLocalSocket* client);
    void slotClientConnectionClosed(QLocalSocket* client);
    void dropHangingClients();
    void drop(QLocalSocket* client);
    quint64 announcedLength() const;
    static bool writeAck(QLocalSocket* client);

    QByteArray serverName;
    SingleApplication::Modes options;
    QLocalServer server;
    QHash<QLocalSocket*, ConnectionInfo> connections;
    QTimer clock; ///< runs while there are clients
    quint64 activity = 0;
};
