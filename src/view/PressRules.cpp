#include "view/PressRules.h"

#include <algorithm>
#include <iterator>

PressAction decidePress(Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    struct Rule {
        Qt::KeyboardModifier modifiers;
        PressAction action;
    };
    static constexpr Rule leftButton[] = {
        {Qt::NoModifier, PressAction::Select},
        {Qt::ControlModifier, PressAction::AddToSelection},
        {Qt::AltModifier, PressAction::TakeOut},
        {Qt::ShiftModifier, PressAction::Extend},
    };
    if (button != Qt::LeftButton)
        return PressAction::BaseHandler;
    auto const* const rule = std::find_if(std::begin(leftButton), std::end(leftButton), [&](Rule const& candidate) {
        return modifiers == Qt::KeyboardModifiers(candidate.modifiers);
    });
    return rule == std::end(leftButton) ? PressAction::BaseHandler : rule->action;
}
