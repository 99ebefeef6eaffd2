#include "InstanceProbe.h"

#include <algorithm>

namespace {

using HandOverTest = SingleApplicationTest;
using Starts = std::vector<std::unique_ptr<Probe>>;

Starts startMany(QString const& appData, int count) {
    Starts starts;
    for (int i = 0; i < count; ++i) {
        starts.push_back(std::make_unique<Probe>(appData));
    }
    for (auto const& start : starts) {
        EXPECT_EQ(start->role(), "secondary");
    }
    return starts;
}

/// What each start says in the end, sorted.
QList<QByteArray> endings(Starts const& starts) {
    QList<QByteArray> result;
    for (auto const& start : starts) {
        result.append(start->line());
    }
    std::sort(result.begin(), result.end());
    return result;
}

/// The messages that come to a primary, without their senders, sorted.
QList<QByteArray> messages(Probe& primary, qsizetype count) {
    QList<QByteArray> result;
    for (qsizetype i = 0; i < count; ++i) {
        result.append(QByteArray::fromHex(primary.line().split(' ').last()));
    }
    std::sort(result.begin(), result.end());
    return result;
}

} // namespace

TEST_F(HandOverTest, TenStartsBehindABusyPrimaryAreTakenOnceEach) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Starts const starts = startMany(appData, 10);
    primary.tell("sleep 1000"); // many tries long
    EXPECT_EQ(primary.line(), "sleeping");
    QList<QByteArray> expected;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        QByteArray const message(1, static_cast<char>('a' + i));
        starts[i]->beginHandOver(message);
        expected.append("/<" + message);
    }
    EXPECT_EQ(endings(starts), QList<QByteArray>(10, "taken"));
    EXPECT_EQ(messages(primary, 10), expected);
    EXPECT_EQ(starts[0]->send("", "last"), "sent");
    EXPECT_EQ(messages(primary, 1), QList<QByteArray>{"<last"}); // nothing came twice
}

// Each turn of the primary's loop is longer than a try: no try gets through all frames.
TEST_F(HandOverTest, PrimaryWhoseLoopTurnsSlowlyTakesMessagesAllTheSame) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Starts const starts = startMany(appData, 1);
    starts[0]->beginHandOver("x");
    bool taken = false;
    while (!taken) {
        primary.tell("sleep 150");
        QByteArray const line = primary.line();
        taken = line == received(1, "/<x");
        ASSERT_TRUE(taken || line == "sleeping") << line.toStdString();
    }
    EXPECT_EQ(starts[0]->line(), "taken");
}

TEST_F(HandOverTest, OneOfTheStartsTakesThePlaceOfAPrimaryThatDiesUnderThem) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Starts const starts = startMany(appData, 5);
    primary.signal(SIGSTOP);
    for (auto const& start : starts) {
        start->beginHandOver("x");
    }
    primary.crash();
    QList<QByteArray> said;
    Probe* successor = nullptr;
    for (auto const& start : starts) {
        QByteArray const line = start->line();
        if (line == "own, primary") {
            successor = start.get();
        }
        said.append(line);
    }
    std::sort(said.begin(), said.end());
    EXPECT_EQ(said, (QList<QByteArray>{"own, primary", "taken", "taken", "taken", "taken"}));
    ASSERT_NE(successor, nullptr);
    EXPECT_EQ(messages(*successor, 4), QList<QByteArray>(4, "/<x"));
}

TEST_F(HandOverTest, StartThatNobodyAnswersGoesItsOwnWayAndItsMessageIsNotTakenLater) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Starts const starts = startMany(appData, 2);
    primary.signal(SIGSTOP);
    EXPECT_EQ(starts[0]->handOver("mine"), "own, alone");
    EXPECT_THAT(starts[0]->errors().toStdString(), testing::HasSubstr("does not take the message"));
    primary.signal(SIGCONT);
    EXPECT_EQ(starts[1]->handOver("yours"), "taken");
    EXPECT_EQ(messages(primary, 1), QList<QByteArray>{"/<yours"});
}

TEST_F(HandOverTest, PrimaryThatServesNoLongerLeavesItsPlaceAndMayServeAgain) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    primary.tell("serve 0");
    EXPECT_EQ(primary.line(), "alone");
    primary.tell("serve 1");
    EXPECT_EQ(primary.line(), "primary");
    {
        Starts const starts = startMany(appData, 1);
        EXPECT_EQ(starts[0]->handOver("x"), "taken");
        EXPECT_EQ(primary.line(), received(1, "/<x"));
        primary.tell("serve 0");
        EXPECT_EQ(primary.line(), "alone");
        EXPECT_EQ(starts[0]->handOver("y"), "own, primary");
        primary.tell("serve 1");
        EXPECT_EQ(primary.line(), "alone"); // the place is taken, and it is no secondary
    }
}

TEST_F(HandOverTest, MessageThatNoPrimaryWouldTakeStaysWithItsStart) {
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Starts const starts = startMany(appData, 3);
    EXPECT_EQ(starts[0]->handOver(QByteArray(maximumFields - 2, fieldSeparator)), "taken");
    EXPECT_EQ(starts[1]->handOver(QByteArray(maximumFields - 1, fieldSeparator)), "own, alone");
    EXPECT_EQ(starts[2]->handOver(QByteArray(maximumMessageSize, 'x')), "own, alone");
}
