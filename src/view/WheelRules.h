#pragma once

#include "core/Enumerations.h"

#include <QPoint>
#include <Qt>

struct WheelInput {
    Qt::KeyboardModifiers modifiers;
    bool trackpad = false;
    QPoint angleDelta;
};

struct WheelAction {
    enum class Kind {
        Nothing,
        Pixels, ///< move the axis by `delta` pixels and snap when the wheel has come to rest
        Step,   ///< scroll in the direction, by a page if `page` is set
    };

    Kind kind = Kind::Nothing;
    Axis axis = Axis::Rows;
    int delta = 0;
    Direction direction = Direction::Up;
    bool page = false;

    bool operator==(WheelAction const&) const = default;
};

/// What a turn of the wheel or a stroke on a trackpad does.
WheelAction decideWheel(WheelInput const& input);
