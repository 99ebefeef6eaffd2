#include "core/ModalHold.h"
#include "tests/support/HeldClock.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStringList>
#include <gtest/gtest.h>

#include <optional>

TEST(TypingGuardTest, WhatComesFromOutsideWaitsInOrderForTheKeysTheOpenTextAndTheQuestions) {
    HeldClock clock;
    QObject owner;
    bool text = false;
    TypingGuard::addText(&owner, [&] { return text; });
    QStringList log;
    auto const later = [&](QString const& what) {
        TypingGuard::whenStill(&owner, [&log, what] { log << what + (FromOutside::isActing() ? "" : "!"); });
    };
    auto const press = [&](Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_X, modifiers);
        QCoreApplication::sendEvent(&owner, &event);
    };
    auto const click = [&] {
        QMouseEvent event(QEvent::MouseButtonPress, {}, {}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&owner, &event);
    };
    later("at once");
    click();
    press(Qt::ControlModifier);
    later("after a shortcut");
    EXPECT_EQ(log, QStringList({"at once", "after a shortcut"}));
    log.clear();

    press();
    later("a");
    clock.pass(TypingGuard::stillMs - 1);
    QInputMethodEvent input;
    QCoreApplication::sendEvent(&owner, &input);
    later("b");
    clock.pass(TypingGuard::stillMs - 1);
    EXPECT_EQ(log, QStringList());
    text = true;
    clock.pass(TypingGuard::idleMs - TypingGuard::stillMs);
    EXPECT_EQ(log, QStringList());
    click(); // as to put the cursor elsewhere
    clock.pass(TypingGuard::idleMs - 1);
    EXPECT_EQ(log, QStringList());
    std::optional<ModalHold> hold(std::in_place);
    clock.pass(2 * TypingGuard::idleMs);
    EXPECT_EQ(log, QStringList());
    hold.reset();
    press();
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList());
    text = false; // entered
    clock.pass(2 * TypingGuard::stillMs);
    EXPECT_EQ(log, QStringList({"a", "b"}));
    EXPECT_FALSE(FromOutside::isActing());
}
