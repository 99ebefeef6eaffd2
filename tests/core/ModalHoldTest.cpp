#include "core/ModalHold.h"

#include <QCoreApplication>
#include <QStringList>
#include <gtest/gtest.h>

#include <memory>

TEST(ModalHoldTest, WhatWaitsComesInOrderAfterTheLastHoldAndWaitsAgainForTheQuestionsOfItsOwn) {
    QStringList log;
    QObject context;
    auto const later = [&](QString const& what) { ModalHold::whenFree(&context, [&, what] { log << what; }); };
    later("at once");
    {
        ModalHold const outer;
        ModalHold::whenFree(&context, [&] {
            ModalHold const own;
            later("second start of the question");
            QCoreApplication::processEvents();
            log << "asks";
        });
        auto doomed = std::make_unique<QObject>();
        ModalHold::whenFree(doomed.get(), [&] { log << "of a window that has gone"; });
        later("last");
        doomed.reset();
        { ModalHold const inner; }
        QCoreApplication::processEvents();
        EXPECT_EQ(log, QStringList("at once"));
    }
    EXPECT_EQ(log, QStringList("at once")); // not under whoever has just waited
    later("behind those that wait");
    QCoreApplication::processEvents();
    EXPECT_EQ(log, (QStringList{"at once", "asks", "last", "behind those that wait", "second start of the question"}));
}
