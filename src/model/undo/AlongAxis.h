#pragma once

#include "core/Enumerations.h"

#include <utility>

/// Makes the row command or the column command out of a command that is written for both: the same constructors without
/// the axis.
template <class Command, Axis axis>
class AlongAxis : public Command {
public:
    template <class Model, class... Arguments>
    explicit AlongAxis(Model* model, Arguments&&... arguments)
        : Command(axis, model, std::forward<Arguments>(arguments)...) {}
};
