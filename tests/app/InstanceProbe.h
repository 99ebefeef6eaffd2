#pragma once

#include "app/SingleApplication.h"
#include "app/SingleApplicationFrames.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QUuid>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <memory>
#include <pwd.h>
#include <unistd.h>

// Starts of the program as real processes, and what other processes may say to them.

using namespace SingleApplicationFrames;

inline constexpr int patience = 30000;

/// One start of the program; it ends with this object.
class Probe {
public:
    explicit Probe(QString const& appData, int options = SingleApplication::PerUser, bool allowSecondary = true) {
        process.start(SINGLE_INSTANCE_PROBE, {appData, QString::number(options), allowSecondary ? "1" : "0"});
    }
    ~Probe() { quit(); }

    /// The next line that it says; empty when it has ended.
    QByteArray line() {
        while (!process.canReadLine() && process.waitForReadyRead(patience)) {
        }
        QByteArray const text = process.readLine();
        return text.endsWith('\n') ? text.chopped(1) : text;
    }
    /// "primary" or "secondary".
    QByteArray role() { return line().split(' ').first(); }
    void tell(QByteArray const& command) {
        process.write(command + '\n');
        process.waitForBytesWritten(patience);
    }
    QByteArray send(QByteArray const& directory, QByteArray const& message, int timeoutMs = patience, int mode = 0) {
        tell("send " + QByteArray::number(timeoutMs) + ' ' + QByteArray::number(mode) + ' ' + directory.toHex() + ' ' +
             message.toHex());
        return mode == 0 ? line() : QByteArray();
    }
    /// Hands a message over: "taken", or "own, " and what the start has become.
    QByteArray handOver(QByteArray const& message) {
        beginHandOver(message);
        return line();
    }
    void beginHandOver(QByteArray const& message) {
        tell("hand-over " + message.toHex());
        EXPECT_EQ(line(), "handing over");
    }
    void quit() {
        process.closeWriteChannel();
        if (!process.waitForFinished(patience)) {
            process.kill();
            process.waitForFinished(patience);
        }
    }
    /// Dies without a chance to tidy up.
    void crash() {
        process.kill();
        process.waitForFinished(patience);
    }
    void signal(int number) { ::kill(static_cast<pid_t>(process.processId()), number); }
    QByteArray errors() { return process.readAllStandardError(); }

    QProcess process;
};

inline QByteArray received(int id, QByteArray const& message) {
    return "message " + QByteArray::number(id) + ' ' + message.toHex();
}

/// Whether a process of another user can be had: only root may start one.
inline bool canBeAnotherUser() {
    return geteuid() == 0;
}
inline constexpr uid_t otherUser = 65534;

class SingleApplicationTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(home.isValid());
        for (char const* const variable : {"XDG_RUNTIME_DIR", "TMPDIR"}) {
            saved.append({variable, qgetenv(variable)});
            qputenv(variable, home.path().toLocal8Bit());
        }
    }
    void TearDown() override {
        for (auto const& [variable, value] : saved) {
            value.isNull() ? qunsetenv(variable) : qputenv(variable, value);
        }
        if (!leavesFiles) {
            EXPECT_EQ(QDir(folder()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), QStringList());
        }
    }

    QString folder() const { return home.filePath("gridwright"); }

    /// The name of block and socket of a probe with the mode PerUser.
    QString name() const {
        QByteArray const user = getpwuid(geteuid())->pw_name;
        QByteArray const text = "SingleApplication"
                                "single_instance_probe" +
                                appData.toUtf8() + SINGLE_INSTANCE_PROBE + user;
        QByteArray const digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
        return QString::fromLatin1(digest.toBase64()).replace('/', '_');
    }
    QString socketPath(char const* suffix = "") const { return folder() + '/' + name() + suffix; }
    QString blockPath(char const* suffix = "") const { return socketPath(suffix) + ".block"; }

    QByteArray init(ConnectionType type, quint32 id = 5) const {
        return encodeInitMessage({name().toLatin1(), type, id});
    }

    /// Two starts find each other, whatever is in their way.
    void expectService() const {
        Probe primary(appData);
        EXPECT_EQ(primary.role(), "primary") << primary.errors().toStdString();
        Probe second(appData);
        EXPECT_EQ(second.role(), "secondary") << second.errors().toStdString();
        EXPECT_EQ(second.send("/", "x"), "sent");
        EXPECT_EQ(primary.line(), received(1, "/<x"));
    }

    QTemporaryDir const home{"/tmp/gridwright-XXXXXX"}; // short, since paths of sockets are
    QString const appData = QUuid::createUuid().toString();
    QList<std::pair<char const*, QByteArray>> saved;
    bool leavesFiles = false;
};

inline QByteArray framed(QByteArray const& body) {
    return encodeHeader(body.size()) + body;
}

inline void connectTo(QLocalSocket& client, QString const& path) {
    client.connectToServer(path);
    ASSERT_TRUE(client.waitForConnected(patience));
}

inline QByteArray acknowledgements(QLocalSocket& client, int count) {
    while (client.bytesAvailable() < count && client.waitForReadyRead(patience)) {
    }
    return client.readAll();
}

/// Waits, while processes get on, until a condition holds.
inline bool becomes(std::function<bool()> const& condition) {
    for (QDeadlineTimer deadline(patience); !condition(); QThread::msleep(10)) {
        if (deadline.hasExpired()) {
            return false;
        }
    }
    return true;
}

/// Whether the server drops a client that says this, part by part.
inline bool isDropped(QString const& path, QList<QByteArray> const& parts) {
    QLocalSocket client;
    connectTo(client, path);
    for (QByteArray const& part : parts) {
        client.write(part);
        client.waitForBytesWritten(patience);
    }
    return client.state() == QLocalSocket::UnconnectedState || client.waitForDisconnected(patience);
}
