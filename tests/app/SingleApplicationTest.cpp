#include "app/SingleApplication.h"

#include "app/InstanceBlock.h"
#include "app/SingleApplicationFrames.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QSharedMemory>
#include <QSystemSemaphore>
#include <QUuid>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <pwd.h>
#include <unistd.h>

using namespace SingleApplicationFrames;

namespace {

constexpr int patience = 30000;

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

QByteArray received(int id, QByteArray const& message) {
    return "message " + QByteArray::number(id) + ' ' + message.toHex();
}

class SingleApplicationTest : public testing::Test {
protected:
    void TearDown() override {
        QSharedMemory block(name());
        EXPECT_FALSE(block.attach()) << "a block is left behind";
        QLocalServer::removeServer(name());
        // A crash leaves the semaphore of the lock; whoever opens it to create it removes it.
        QSystemSemaphore const semaphore(name(), 1, QSystemSemaphore::Create);
    }

    /// The name of block and socket of a probe with the mode PerUser.
    QString name() const {
        QByteArray const user = getpwuid(geteuid())->pw_name;
        QByteArray const text = "SingleApplication"
                                "single_instance_probe" +
                                appData.toUtf8() + SINGLE_INSTANCE_PROBE + user;
        QByteArray const digest = QCryptographicHash::hash(text, QCryptographicHash::Sha256);
        return QString::fromLatin1(digest.toBase64()).replace('/', '_');
    }

    QByteArray init(ConnectionType type, quint32 id = 5) const {
        return encodeInitMessage({name().toLatin1(), type, id});
    }

    QString const appData = QUuid::createUuid().toString();
};

QByteArray framed(QByteArray const& body) {
    return encodeHeader(body.size()) + body;
}

void connectTo(QLocalSocket& client, QString const& name) {
    client.connectToServer(name);
    ASSERT_TRUE(client.waitForConnected(patience));
}

QByteArray acknowledgements(QLocalSocket& client, int count) {
    while (client.bytesAvailable() < count && client.waitForReadyRead(patience)) {
    }
    return client.readAll();
}

/// Whether the server drops a client that says this, part by part.
bool isDropped(QString const& name, QList<QByteArray> const& parts) {
    QLocalSocket client;
    connectTo(client, name);
    for (QByteArray const& part : parts) {
        client.write(part);
        client.waitForBytesWritten(patience);
    }
    return client.state() == QLocalSocket::UnconnectedState || client.waitForDisconnected(patience);
}

} // namespace

TEST_F(SingleApplicationTest, SecondariesHandMessagesOver) {
    Probe primary(appData);
    QByteArray const user = getpwuid(geteuid())->pw_name;
    QByteArray const record =
        QByteArray::number(primary.process.processId()) + ' ' + user + ' ' + user + ' ' + appData.toUtf8();
    EXPECT_EQ(primary.line(), "primary 0 " + record);
    EXPECT_EQ(primary.send("/", "to myself"), "not sent");

    Probe first(appData);
    EXPECT_EQ(first.line(), "secondary 1 " + record);
    Probe second(appData);
    EXPECT_EQ(second.line(), "secondary 2 " + record);

    QByteArray const directory = "/home/J\xc3\xb6rg";
    QByteArray const large(3'000'000, '<');
    for (QByteArray const& message : {QByteArray("/usr/bin/program<a<b.csv<\xe2\x82\xac.csv"), QByteArray(), large}) {
        EXPECT_EQ(second.send(directory, message), "sent");
        EXPECT_EQ(primary.line(), received(2, directory + '<' + message));
    }
    EXPECT_EQ(first.send("", "x"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<x"));
}

TEST_F(SingleApplicationTest, ModesTellWhoIsToldOfAStart) {
    Probe primary(appData, SingleApplication::PerUser | SingleApplication::NotifySecondaryStarts);
    ASSERT_EQ(primary.role(), "primary");
    Probe notifying(appData, SingleApplication::PerUser | SingleApplication::NotifySecondaryStarts);
    EXPECT_EQ(notifying.role(), "secondary");
    EXPECT_EQ(primary.line(), "instance started");

    Probe forbidden(appData, SingleApplication::PerUser, false);
    EXPECT_EQ(forbidden.line(), "");
    forbidden.quit();
    EXPECT_EQ(forbidden.process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(forbidden.process.exitCode(), 0) << forbidden.errors().toStdString();
    EXPECT_EQ(primary.line(), "instance started");

    EXPECT_EQ(notifying.send("", "after"), "sent"); // over the connection that told of the start
    EXPECT_EQ(primary.line(), received(1, "<after"));

    Probe machineWide(appData, SingleApplication::PerMachine);
    EXPECT_EQ(machineWide.role(), "primary");
}

TEST_F(SingleApplicationTest, SenderCanWaitForTheEndOfThePrimary) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Probe sender(appData);
    ASSERT_EQ(sender.role(), "secondary");
    sender.send("", "bye", patience, SingleApplication::SendAndWaitForPrimaryExit);
    EXPECT_EQ(primary.line(), received(1, "<bye"));
    EXPECT_FALSE(sender.process.canReadLine());
    primary.quit();
    EXPECT_EQ(sender.line(), "sent");
    EXPECT_EQ(sender.send("", "nobody", 50), "not sent");

    // The secondary keeps the block alive, in which the primary has cleared its record.
    Probe next(appData);
    EXPECT_EQ(next.role(), "primary");
    EXPECT_EQ(sender.send("", "again"), "sent");
    EXPECT_EQ(next.line(), received(1, "<again"));
}

TEST_F(SingleApplicationTest, BusyPrimaryIsWaitedForWithinTheTimeOut) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Probe sender(appData);
    ASSERT_EQ(sender.role(), "secondary");
    primary.tell("sleep 200");
    EXPECT_EQ(primary.line(), "sleeping");
    EXPECT_EQ(sender.send("", "patient"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<patient"));

    primary.signal(SIGSTOP);
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(sender.send("", "hasty", 100), "not sent");
    EXPECT_LT(elapsed.elapsed(), 5000);
    primary.signal(SIGCONT);
    EXPECT_EQ(sender.send("", "on a new connection"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<on a new connection"));

    // A client whose time is over after the last frame has gone: the message counts.
    QLocalSocket client;
    connectTo(client, name());
    client.write(framed(init(ConnectionType::MessageConnection)) + encodeHeader(4));
    EXPECT_EQ(acknowledgements(client, 3), QByteArray(3, acknowledgement));
    primary.signal(SIGSTOP);
    client.write("late");
    client.waitForBytesWritten(patience);
    client.close();
    primary.signal(SIGCONT);
    EXPECT_EQ(primary.line(), received(5, "late"));
}

TEST_F(SingleApplicationTest, NextStartAfterACrashIsPrimary) {
    Probe crashed(appData);
    ASSERT_EQ(crashed.role(), "primary");
    crashed.crash();
    Probe next(appData);
    EXPECT_EQ(next.role(), "primary");
    Probe sender(appData);
    EXPECT_EQ(sender.role(), "secondary");
    EXPECT_EQ(sender.send("", "x"), "sent");
    EXPECT_EQ(next.line(), received(1, "<x"));
}

TEST_F(SingleApplicationTest, BlockOfACrashedPrimaryThatIsStillHeldCostsTheMessage) {
    Probe crashed(appData);
    ASSERT_EQ(crashed.role(), "primary");
    QSharedMemory holder(name());
    ASSERT_TRUE(holder.attach());
    crashed.crash();
    Probe lost(appData);
    EXPECT_EQ(lost.role(), "secondary");
    EXPECT_EQ(lost.send("", "lost", 100), "not sent");
}

TEST_F(SingleApplicationTest, DamagedBlockRecovers) {
    QSharedMemory holder(name());
    ASSERT_TRUE(holder.create(sizeof(InstanceBlock)));
    EXPECT_EQ(sizeof(InstanceBlock), 152U);
    ASSERT_FALSE(static_cast<InstanceBlock*>(holder.data())->isConsistent());
    QElapsedTimer elapsed;
    elapsed.start();
    Probe next(appData);
    EXPECT_EQ(next.role(), "primary");
    EXPECT_GT(elapsed.elapsed(), 5000);
    EXPECT_THAT(next.errors().toStdString(),
                testing::HasSubstr("SingleApplication: Shared memory block has been in an inconsistent state from more "
                                   "than 5s. Assuming primary instance failure.\n"));
}

TEST_F(SingleApplicationTest, OneOfTwoStartsAtOnceIsPrimary) {
    for (int round = 0; round < 20; ++round) {
        if (round % 2 == 1) { // every other time both find what a crash has left
            Probe crashed(appData);
            ASSERT_EQ(crashed.role(), "primary");
            crashed.crash();
        }
        Probe a(appData);
        Probe b(appData);
        QList<QByteArray> roles{a.role(), b.role()};
        std::sort(roles.begin(), roles.end());
        EXPECT_EQ(roles, (QList<QByteArray>{"primary", "secondary"})) << "round " << round;
    }
}

TEST_F(SingleApplicationTest, ClientsThatLieAreDroppedWithoutASignal) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    QByteArray wrongChecksum = init(ConnectionType::FreshStart);
    wrongChecksum.back() = static_cast<char>(wrongChecksum.back() ^ 1);
    QByteArray const wrongName = encodeInitMessage({"other", ConnectionType::FreshStart, 5});
    QByteArray const good = framed(init(ConnectionType::MessageConnection));
    for (quint64 length : {quint64(4096), quint64(1) << 33, ~quint64(0)}) {
        EXPECT_TRUE(isDropped(name(), {encodeHeader(length)})) << length;
    }
    EXPECT_TRUE(isDropped(name(), {framed(wrongChecksum)}));
    EXPECT_TRUE(isDropped(name(), {framed(wrongName)}));
    EXPECT_TRUE(isDropped(name(), {framed(QByteArray())}));
    EXPECT_TRUE(isDropped(name(), {framed("GET / HTTP/1.1\r\n\r\n")}));
    EXPECT_TRUE(isDropped(name(), {good, encodeHeader(~quint64(0))}));
    EXPECT_TRUE(isDropped(name(), {good, encodeHeader(maximumMessageSize + 1)}));

    Probe honest(appData);
    ASSERT_EQ(honest.role(), "secondary");
    EXPECT_EQ(honest.send("", "x"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<x")); // and nothing before it
}

TEST_F(SingleApplicationTest, FramesMayComeInPiecesAndBreakOff) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    QByteArray const talk =
        framed(init(ConnectionType::MessageConnection)) + framed("one") + framed("") + framed("two");
    QLocalSocket slow;
    connectTo(slow, name());
    for (char byte : talk) {
        slow.write(&byte, 1);
        slow.waitForBytesWritten(patience);
    }
    for (char const* message : {"one", "", "two"}) {
        EXPECT_EQ(primary.line(), received(5, message));
    }
    EXPECT_EQ(acknowledgements(slow, 8), QByteArray(8, '\x0a'));

    // Clients that go before the first message is whole leave no trace.
    qsizetype const beforeTheEnd = talk.indexOf("one") + 2;
    for (qsizetype length = 0; length <= beforeTheEnd; ++length) {
        QLocalSocket client;
        connectTo(client, name());
        client.write(talk.left(length));
        client.waitForBytesWritten(patience);
    }
    Probe last(appData);
    ASSERT_EQ(last.role(), "secondary");
    EXPECT_EQ(last.send("", "x"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<x"));
}
