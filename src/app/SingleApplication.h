#pragma once

#include <QApplication>
#include <QByteArray>
#include <QFlags>
#include <QString>
#include <QStringList>

class SingleApplicationPrivate;

/// An application that finds its other starts: the first one is the primary, every later one exits, or becomes a
/// secondary that can send messages to the primary. The decision is made in the constructor. Where the system does not
/// let starts find each other, which standard error tells, a start is neither and runs by itself.
class SingleApplication : public QApplication {
    Q_OBJECT

public:
    /// What tells one program from another, and who is told of starts.
    enum Mode {
        PerUser = 1,               ///< One primary for each user.
        PerMachine = 2,            ///< One primary for all users.
        NotifySecondaryStarts = 4, ///< The primary also signals the starts of secondaries.
        IgnoreVersion = 8,         ///< Different versions are the same program.
        IgnorePath = 16,           ///< Programs at different paths are the same program.
    };
    Q_DECLARE_FLAGS(Modes, Mode)

    enum SendMode {
        SendAndReturn = 0,
        SendAndWaitForPrimaryExit = 1, ///< Returns when the primary has gone, however long that takes.
    };

    /// If a primary lives and `allowSecondary` is false, wakes the primary and ends the process with 0. `timeoutMs`
    /// bounds the talk with the primary. `userData` sets programs apart that are the same otherwise.
    SingleApplication(int& argc, char** argv, bool allowSecondary, QFlags<Mode> options, int timeoutMs,
                      QString const& userData = QString());
    /// A primary gives its place up here.
    ~SingleApplication() override;

    bool isPrimary() const;
    bool isSecondary() const;
    /// 0 for a primary; secondaries count from 1.
    quint32 instanceId() const;
    /// Process id of the primary as recorded; -1 if there is none.
    qint64 primaryPid() const;
    /// Name of the user of the primary as recorded.
    QString primaryUser() const;
    QString currentUser() const;
    QStringList userData() const;

    /// Sends `workingDirectory` in UTF-8, "<" and `message` to the primary. `timeoutMs` bounds the connecting and the
    /// sending together. Whether the primary has taken it, which it does once; always false from a primary. After a
    /// time-out the same message goes on from where it was, and another one takes its place.
    bool sendMessage(QByteArray const& message, QString workingDirectory, int timeoutMs, SendMode mode = SendAndReturn);
    /// Sends a message again and again, in tries of 100 ms, until the primary has taken it: true. After ten seconds, or
    /// if the primary has gone and no other start has taken its place, false: this start is no secondary any more, and
    /// the message will never be taken by anybody else.
    bool handOver(QByteArray const& message, QString const& workingDirectory);

    /// A primary without windows stops serving before it ends, so that it acknowledges nothing that is lost then. It
    /// serves again if a window comes after all.
    void setServing(bool serving);

signals:
    /// Another start has exited in favour of this one, or, if asked for, has become a secondary.
    void instanceStarted();
    /// A message as sent by sendMessage, with its directory in front.
    void receivedMessage(quint32 instanceId, QByteArray message);

private:
    friend class SingleApplicationPrivate;
    SingleApplicationPrivate* d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SingleApplication::Modes)
