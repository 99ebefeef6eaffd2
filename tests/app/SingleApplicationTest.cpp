#include "InstanceProbe.h"
#include "app/InstanceBlock.h"
#include "app/RuntimeFolder.h"
#include "app/SharedBlock.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>

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
    QByteArray const large(maximumMessageSize - directory.size() - 1, 'x');
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

    // A client that has gone before its message was taken opens its files itself.
    QLocalSocket client;
    connectTo(client, socketPath());
    client.write(framed(init(ConnectionType::MessageConnection)) + encodeHeader(4));
    EXPECT_EQ(acknowledgements(client, 3), QByteArray(3, acknowledgement));
    primary.signal(SIGSTOP);
    client.write("late");
    client.waitForBytesWritten(patience);
    client.close();
    primary.signal(SIGCONT);
    EXPECT_EQ(sender.send("", "the next"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<the next"));
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

TEST_F(SingleApplicationTest, PlaceOfACrashedPrimaryWhoseBlockIsStillHeldIsTakenWithTheMessage) {
    Probe crashed(appData);
    ASSERT_EQ(crashed.role(), "primary");
    Probe holder(appData);
    ASSERT_EQ(holder.role(), "secondary");
    crashed.crash();
    Probe start(appData);
    EXPECT_EQ(start.role(), "secondary");
    EXPECT_EQ(start.send("", "nobody", 100), "not sent");
    EXPECT_EQ(start.handOver("to me"), "own, primary");
    EXPECT_EQ(holder.handOver("to the next"), "taken");
    EXPECT_EQ(start.line(), received(1, "/<to the next"));
}

TEST_F(SingleApplicationTest, DamagedBlockRecovers) {
    RuntimeFolder place;
    SharedBlock holder;
    ASSERT_TRUE(place.open(true) && place.lock(QDeadlineTimer(patience)));
    ASSERT_EQ(holder.create(place, name()), SharedBlock::Result::Attached);
    holder.data()->primary = 1;
    EXPECT_EQ(QFileInfo(blockPath()).size(), 152);
    place.unlock();
    {
        Probe next(appData);
        EXPECT_EQ(next.role(), "primary");
        EXPECT_THAT(next.errors().toStdString(),
                    testing::HasSubstr("SingleApplication: Shared memory block has been in an inconsistent state from "
                                       "more than 5s. Assuming primary instance failure.\n"));
    }
    ASSERT_TRUE(place.lock(QDeadlineTimer(patience)));
    holder.release(place);
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
        EXPECT_TRUE(isDropped(socketPath(), {encodeHeader(length)})) << length;
    }
    EXPECT_TRUE(isDropped(socketPath(), {framed(wrongChecksum)}));
    EXPECT_TRUE(isDropped(socketPath(), {framed(wrongName)}));
    EXPECT_TRUE(isDropped(socketPath(), {framed(QByteArray())}));
    EXPECT_TRUE(isDropped(socketPath(), {framed("GET / HTTP/1.1\r\n\r\n")}));
    EXPECT_TRUE(isDropped(socketPath(), {good, encodeHeader(~quint64(0))}));
    EXPECT_TRUE(isDropped(socketPath(), {good, encodeHeader(maximumMessageSize + 1)}));

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
    connectTo(slow, socketPath());
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
        connectTo(client, socketPath());
        client.write(talk.left(length));
        client.waitForBytesWritten(patience);
    }
    Probe last(appData);
    ASSERT_EQ(last.role(), "secondary");
    EXPECT_EQ(last.send("", "x"), "sent");
    EXPECT_EQ(primary.line(), received(1, "<x"));
}
