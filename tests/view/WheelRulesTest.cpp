#include "view/WheelRules.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

WheelAction pixels(Axis axis, int delta) {
    return {WheelAction::Kind::Pixels, axis, delta, Direction::Up, false};
}

WheelAction step(Direction direction, bool page) {
    bool const rows = direction == Direction::Up || direction == Direction::Down;
    return {WheelAction::Kind::Step, rows ? Axis::Rows : Axis::Columns, 0, direction, page};
}

} // namespace

TEST(WheelRules, DecideByModifiersDeviceAndTurn) {
    struct Case {
        Qt::KeyboardModifiers modifiers;
        bool trackpad;
        QPoint turn;
        WheelAction expected;
    };
    Qt::KeyboardModifiers const none = Qt::NoModifier;
    Qt::KeyboardModifiers const shift = Qt::ShiftModifier;
    Qt::KeyboardModifiers const ctrl = Qt::ControlModifier;
    Qt::KeyboardModifiers const alt = Qt::AltModifier;
    for (Case const& test : std::vector<Case>{
             {none, true, {3, 5}, pixels(Axis::Rows, -5)},
             {none, true, {-5, 5}, pixels(Axis::Columns, 5)},
             {none, false, {0, 120}, step(Direction::Up, false)},
             {none, false, {200, -120}, step(Direction::Down, false)},
             {none, false, {120, 0}, step(Direction::Left, false)},
             {none, false, {-120, 0}, step(Direction::Right, false)},
             {none, false, {0, 0}, {}},
             {shift, true, {9, 4}, pixels(Axis::Columns, -4)},
             {shift, false, {0, 120}, step(Direction::Left, false)},
             {shift, false, {-240, 120}, step(Direction::Right, false)},
             {shift, false, {0, 0}, {}},
             {ctrl, false, {0, 120}, step(Direction::Up, true)},
             {ctrl, true, {0, -120}, step(Direction::Down, true)},
             {ctrl, false, {120, 0}, {}},
             {ctrl | shift, false, {0, 120}, step(Direction::Left, true)},
             {ctrl | shift, false, {0, -120}, step(Direction::Right, true)},
             {alt, true, {-120, 0}, step(Direction::Right, true)},
             {alt, false, {0, 0}, {}},
         })
        EXPECT_EQ(decideWheel({test.modifiers, test.trackpad, test.turn}), test.expected)
            << int(test.modifiers) << " trackpad " << test.trackpad << " " << test.turn.x() << "," << test.turn.y();
}
