#pragma once

#include "app/InstanceBlock.h"
#include "app/SingleApplication.h"
#include "app/SingleApplicationFrames.h"

#include <QHash>
#include <QObject>
#include <QSharedMemory>
#include <QStringList>

#include <memory>

class QLocalServer;
class QLocalSocket;

/// What a primary waits for next from a client.
enum class ConnectionStage { AwaitingInitHeader, AwaitingInitBody, AwaitingMessageHeader, AwaitingMessageBody };

/// The workings of a SingleApplication, which owns it: the block, the server of a primary and the socket of a
/// secondary. Everything runs in the main thread.
class SingleApplicationPrivate : public QObject {
    Q_OBJECT

public:
    SingleApplicationPrivate(SingleApplication* q, SingleApplication::Modes options, QString const& userData);
    ~SingleApplicationPrivate() override;

    static QString getUsername();
    /// Keeps starts that came at the same moment from going on in step.
    static void randomSleep();

    // Deciding

    /// Opens the block, makes it if there is none, and locks it. Ends the process if the system refuses.
    void attachAndRelease();
    void openBlock();
    /// Returns, with the block locked, when its checksum is right; after five seconds makes it right.
    void waitForConsistentBlock();
    /// The block itself; the caller holds the lock.
    InstanceBlock* block();
    /// A copy of the block, taken under the lock.
    InstanceBlock readBlock();
    void startPrimary();
    void startSecondary();

    // Client side

    /// Connects and introduces itself; true at once on a connection that stands already.
    bool connectToPrimary(int timeoutMs, ConnectionType type);
    /// Sends one message over the standing connection, which is given up if that fails.
    bool writeConfirmedMessage(QByteArray const& body, QDeadlineTimer deadline, SingleApplication::SendMode mode);

    QSharedMemory memory;
    std::unique_ptr<QLocalServer> server;
    std::unique_ptr<QLocalSocket> socket;
    quint32 instanceNumber = 0;
    QStringList appData;

private:
    struct ConnectionInfo {
        ConnectionStage stage = ConnectionStage::AwaitingInitHeader;
        quint64 messageLength = 0;
        quint32 instanceId = 0;
    };

    QString genBlockServerName() const;
    [[noreturn]] void abortSafely();

    // Server side. The steps return whether they got on, so that there may be more to read.

    void slotConnectionEstablished();
    void readAvailable(QLocalSocket* client);
    bool readMessageHeader(QLocalSocket* client, ConnectionStage nextStage, quint64 maximumLength);
    bool isFrameComplete(QLocalSocket* client) const;
    bool readInitMessageBody(QLocalSocket* client);
    bool slotDataAvailable(QLocalSocket* client);
    void slotClientConnectionClosed(QLocalSocket* client);
    static void writeAck(QLocalSocket* client);

    SingleApplication* q;
    SingleApplication::Modes options;
    QString blockServerName;
    QHash<QLocalSocket*, ConnectionInfo> connections;
};
