#include "commands/table/CommandTable.h"

namespace {

using enum Context;

constexpr CommandRow finding[] = {
    {"&Find", "ctrl+f", TableActive},
    {"Find &Next Match", "f3", Navigating},
    {"Find &Previous Match", "shift+f3", Navigating},
    {"Find &All Matches", "alt+return", Navigating},
};

constexpr CommandRow replacing[] = {
    {"&Replace", "ctrl+h", TableActive, ReadOnly},
    {"Replace Ne&xt Match", "", Navigating, ReadOnly},
    {"Replace Pre&vious Match", "", Navigating, ReadOnly},
    {"Replace A&ll Matches", "ctrl+alt+return", Navigating, ReadOnly},
};

constexpr CommandGroup groups[] = {
    {"Find", finding},
    {"Find", replacing},
};

} // namespace

std::span<CommandGroup const> CommandTable::findCommands() {
    return groups;
}
