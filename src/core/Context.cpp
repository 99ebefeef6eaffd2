#include "core/Context.h"

namespace {

constexpr Context tableUse = Context::Navigating | Context::CellEditing;

void navigateUnlessEditing(Context& value) {
    if (!hasAnyContext(value, tableUse))
        value |= Context::Navigating;
}

} // namespace

// The order of the rules counts: where several bits are added at once, later rules see what earlier ones did.
void addContextGlobal(Context& value, Context add) {
    value |= add;
    if (add == Context::Any)
        return;
    if (hasAnyContext(add, Context::TableActive) && !hasAnyContext(value, Context::CellEditing))
        value |= Context::Navigating;
    if (hasAnyContext(add, Context::FolderOpen)) {
        value |= Context::TableActive;
        navigateUnlessEditing(value);
    }
    if (hasAnyContext(add, Context::Navigating)) {
        value |= Context::TableActive;
        value &= ~Context::CellEditing;
    }
    if (hasAnyContext(add, Context::CellEditing)) {
        value |= Context::TableActive;
        value &= ~Context::Navigating;
    }
    if (hasAnyContext(add, Context::MultiCellSelection | Context::MultiCellSelectionExtra | Context::FileOnDisk |
                               Context::LauncherOpen)) {
        value |= Context::TableActive;
        navigateUnlessEditing(value);
    }
    if (hasAnyContext(add, Context::FindMode | Context::ReplaceMode | Context::FindAllMode)) {
        value |= Context::TableActive | Context::FindReplaceOpen;
        navigateUnlessEditing(value);
    }
    if (hasAnyContext(add, Context::FindResultsMode))
        value |= Context::TableActive | Context::FindReplaceOpen;
    if (hasAnyContext(add, Context::FiltersPresent | Context::HiddenPresent))
        value |= Context::TableActive | Context::FiltersOrHiddenPresent;
}

void removeContextGlobal(Context& value, Context remove) {
    value &= ~remove;
    if (hasAnyContext(remove, Context::TableActive))
        value &= ~tableUse;
    if (hasAnyContext(remove, Context::Navigating) && value != Context::None)
        value |= Context::CellEditing;
    if (hasAnyContext(remove, Context::CellEditing) && value != Context::None)
        value |= Context::Navigating;
    if (hasAnyContext(remove, Context::FindReplaceOpen))
        value &= ~(Context::FindMode | Context::ReplaceMode | Context::FindAllMode);
    constexpr Context concealing = Context::FiltersPresent | Context::HiddenPresent;
    if (hasAnyContext(remove, concealing) && !hasAnyContext(value, concealing))
        value &= ~Context::FiltersOrHiddenPresent;
}

Context modifyContext(Context context) {
    Context value = Context::None;
    addContextGlobal(value, context);
    return value;
}

bool doContextsOverlap(Context a, Context b) {
    return hasAnyContext(modifyContext(a) & modifyContext(b), ~Context::TableActive);
}
