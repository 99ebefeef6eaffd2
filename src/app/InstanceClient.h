#pragma once

#include "app/SingleApplicationFrames.h"

#include <QDeadlineTimer>
#include <QList>
#include <QLocalSocket>
#include <QString>

#include <optional>

/// A secondary's connection to the primary. A message goes out in frames, of which each is acknowledged before the next
/// one is written. What is not acknowledged in time goes on from there when the same message is sent again, over the
/// same connection, so that a primary whose loop turns slowly gets on and takes no message twice.
class InstanceClient {
public:
    /// `path` is that of the primary's socket. With `ownUserOnly`, a server of another user is told nothing.
    InstanceClient(QString path, QString const& serverName, quint32 instanceId, bool ownUserOnly);

    /// Connects and introduces itself; true at once on a connection that stands already.
    bool connectToPrimary(QDeadlineTimer deadline, ConnectionType type);
    /// Sends a message. True when the primary has acknowledged, and so taken, all of it.
    bool writeConfirmedMessage(QByteArray const& message, QDeadlineTimer deadline);
    /// Takes back what has been sent in part, and disconnects. True if the primary had taken the message after all:
    /// else it never will.
    bool withdraw();
    /// Whether somebody listens or listened when this was last known; false after the primary has ended.
    bool isPrimaryThere() const { return primaryThere; }
    void waitForPrimaryExit() { socket.waitForDisconnected(-1); }

private:
    void add(QByteArray const& body);
    bool writeConfirmedFrames(QDeadlineTimer deadline);
    bool writeConfirmedFrame(QByteArray const& frame, QDeadlineTimer deadline);
    void reset();

    QLocalSocket socket;
    QString path;
    QString serverName;
    quint32 instanceId;
    bool ownUserOnly;
    bool primaryThere = true;
    QList<QByteArray> frames; ///< not acknowledged yet
    bool isFirstWritten = false;
    std::optional<QByteArray> unfinished; ///< the message whose frames come last
};
