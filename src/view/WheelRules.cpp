#include "view/WheelRules.h"

#include <cstdlib>

namespace {

WheelAction pixels(Axis axis, int delta) {
    return {WheelAction::Kind::Pixels, axis, delta, Direction::Up, false};
}

/// A turn away from the user scrolls back, one towards the user forth.
WheelAction step(Axis axis, int delta, bool page) {
    if (delta == 0)
        return {};
    bool const rows = axis == Axis::Rows;
    Direction const back = rows ? Direction::Up : Direction::Left;
    Direction const forth = rows ? Direction::Down : Direction::Right;
    return {WheelAction::Kind::Step, axis, 0, delta > 0 ? back : forth, page};
}

} // namespace

WheelAction decideWheel(WheelInput const& input) {
    int const x = input.angleDelta.x();
    int const y = input.angleDelta.y();
    bool const vertical = std::abs(y) > std::abs(x);
    int const dominant = vertical ? y : x;
    if (input.modifiers == Qt::NoModifier) {
        if (input.trackpad)
            return vertical ? pixels(Axis::Rows, -y) : pixels(Axis::Columns, -x);
        return y != 0 ? step(Axis::Rows, y, false) : step(Axis::Columns, x, false);
    }
    if (input.modifiers == Qt::ShiftModifier)
        return input.trackpad ? pixels(Axis::Columns, -y) : step(Axis::Columns, dominant, false);
    if (input.modifiers == Qt::ControlModifier)
        return step(Axis::Rows, y, true);
    return step(Axis::Columns, dominant, true);
}
