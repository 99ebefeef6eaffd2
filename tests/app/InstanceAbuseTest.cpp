#include "InstanceProbe.h"

#include <algorithm>

namespace {

/// A primary that programs with other things in mind talk to.
class InstanceAbuseTest : public SingleApplicationTest {
protected:
    void SetUp() override {
        SingleApplicationTest::SetUp();
        primary = std::make_unique<Probe>(appData);
        ASSERT_EQ(primary->role(), "primary");
    }
    void TearDown() override {
        primary.reset();
        SingleApplicationTest::TearDown();
    }
    /// An honest start is served, and nothing was taken before it.
    void expectNothingTaken() {
        Probe honest(appData);
        ASSERT_EQ(honest.role(), "secondary");
        EXPECT_EQ(honest.handOver("x"), "taken");
        EXPECT_TRUE(primary->line().endsWith(QByteArray("/<x").toHex()));
    }

    std::unique_ptr<Probe> primary;
};

} // namespace

TEST_F(InstanceAbuseTest, FramesLeftHangingAreDroppedAndQuietClientsStay) {
    QByteArray const introduction = framed(init(ConnectionType::MessageConnection));
    QLocalSocket quiet;
    connectTo(quiet, socketPath());
    quiet.write(introduction);
    EXPECT_EQ(acknowledgements(quiet, 2), QByteArray(2, acknowledgement));

    QByteArray const parts[] = {QByteArray(), introduction.left(3), introduction.chopped(1),
                                introduction + encodeHeader(9).chopped(1), introduction + encodeHeader(9) + "half"};
    QLocalSocket clients[std::size(parts)];
    for (std::size_t i = 0; i < std::size(parts); ++i) {
        connectTo(clients[i], socketPath());
        clients[i].write(parts[i]);
        clients[i].waitForBytesWritten(patience);
    }
    for (QLocalSocket& client : clients) {
        EXPECT_TRUE(client.state() == QLocalSocket::UnconnectedState || client.waitForDisconnected(patience));
    }

    QLocalSocket slow;
    connectTo(slow, socketPath());
    slow.write(introduction + encodeHeader(maximumMessageSize));
    EXPECT_TRUE(becomes([&] { // a byte now and then does not keep it alive
        slow.write("x");
        return slow.waitForDisconnected(50) || slow.state() == QLocalSocket::UnconnectedState;
    }));

    quiet.write(framed("at last"));
    EXPECT_EQ(acknowledgements(quiet, 2), QByteArray(2, acknowledgement));
    EXPECT_EQ(primary->line(), received(5, "at last"));
    expectNothingTaken();
}

TEST_F(InstanceAbuseTest, MessagesOfTooManyFieldsAreNotTaken) {
    QByteArray const introduction = framed(init(ConnectionType::MessageConnection));
    QByteArray const tooMany(maximumFields, fieldSeparator);
    EXPECT_TRUE(isDropped(socketPath(), {introduction + framed(tooMany)}));
    EXPECT_TRUE(isDropped(socketPath(), {introduction, framed(QByteArray(maximumMessageSize, fieldSeparator))}));
    EXPECT_TRUE(isDropped(socketPath(), {QByteArray(2 * maximumMessageSize, fieldSeparator)}));
    expectNothingTaken();
}

TEST_F(InstanceAbuseTest, ManyClientsGetNoMoreThanTheirShare) {
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    for (int i = 0; i < 300; ++i) {
        clients.push_back(std::make_unique<QLocalSocket>());
        connectTo(*clients.back(), socketPath());
    }
    auto const connected = [&clients] {
        return std::count_if(clients.begin(), clients.end(), [](auto const& client) {
            return client->state() == QLocalSocket::ConnectedState && !client->waitForDisconnected(0);
        });
    };
    EXPECT_TRUE(becomes([&] { return connected() <= 64; }));
    expectNothingTaken();

    // All of them together hold no more than a few messages.
    std::vector<std::unique_ptr<QLocalSocket>> hoarders;
    for (int i = 0; i < 20; ++i) {
        hoarders.push_back(std::make_unique<QLocalSocket>());
        connectTo(*hoarders.back(), socketPath());
        hoarders.back()->write(framed(init(ConnectionType::MessageConnection)) + encodeHeader(maximumMessageSize));
        hoarders.back()->waitForBytesWritten(patience);
    }
    auto const answered = [&hoarders] {
        return std::count_if(hoarders.begin(), hoarders.end(),
                             [](auto const& hoarder) { return acknowledgements(*hoarder, 3).size() == 3; });
    };
    EXPECT_LE(answered(), 4);
    expectNothingTaken();
}
