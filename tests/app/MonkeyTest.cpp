#include "tests/app/WindowFixture.h"
#include "tests/app/WindowMonkey.h"

#include <QDeadlineTimer>
#include <gtest/gtest.h>

#include <chrono>

namespace {

struct Quick {
    Quick() { MainWindow::setWatchTimings({20, 80, 30}); }
};

class MonkeyTest : public testing::TestWithParam<unsigned> {
    Quick quick;
    OwnPreferences preferences;
};

} // namespace

TEST_P(MonkeyTest, WhateverIsDoneTheWindowLivesAndSavesHoldWhatItShows) {
    WindowMonkey monkey(GetParam());
    constexpr int actions = 400;
    for (int i = 0; i < actions && !HasFatalFailure(); ++i)
        monkey.act();
    RecordProperty("saves", monkey.savesCompared());
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::Range(1u, 9u));

// For a long run by hand: GRIDWRIGHT_MONKEY_MINUTES=60 gridwright_app_tests --gtest_filter='MonkeyForLong*'. With
// GRIDWRIGHT_MONKEY_SEED it begins at another seed.
TEST(MonkeyForLong, AsManyMinutesAsAskedFor) {
    int const minutes = qEnvironmentVariableIntValue("GRIDWRIGHT_MONKEY_MINUTES");
    if (minutes <= 0)
        GTEST_SKIP() << "not asked for";
    Quick const quick;
    QDeadlineTimer const end(std::chrono::minutes{minutes});
    int saves = 0;
    constexpr unsigned firstSeed = 1000;
    unsigned seed = firstSeed + unsigned(qEnvironmentVariableIntValue("GRIDWRIGHT_MONKEY_SEED"));
    for (; !end.hasExpired() && !HasFailure(); ++seed) {
        WindowMonkey monkey(seed);
        constexpr int actions = 1500;
        for (int i = 0; i < actions && !HasFailure(); ++i)
            monkey.act();
        saves += monkey.savesCompared();
        printf("seed %u: %d saves compared so far, the longest action %lld ms: %s\n", seed, saves,
               static_cast<long long>(monkey.longest()), qPrintable(monkey.longestAction()));
        fflush(stdout);
    }
}
