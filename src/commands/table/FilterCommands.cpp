#include "commands/table/CommandTable.h"

namespace {

using enum Context;

constexpr CommandRow adding[] = {
    {"Add Filter", "", Navigating},
    {"Add Filter with Regular Expressions", "", Navigating},
    {"View/Edit Filter(s)", "", Navigating},
};

constexpr CommandRow filteringBySelection[] = {
    {"Filter Selected Row", "", Navigating},
    {"Filter Selected Column", "", Navigating},
    {"Filter Selected Row with Regular Expressions", "", Navigating},
    {"Filter Selected Column with Regular Expressions", "", Navigating},
    {"Filter Selected Row(s) with Selected Cell Contents", "", Navigating},
    {"Filter Selected Column(s) with Selected Cell Contents", "", Navigating},
    {"Select Values in Selected Column to Filter", "", Navigating},
};

constexpr CommandRow removing[] = {
    {"Remove Individual Filter(s)", "", Navigating},
    {"Remove All Filters", "", Navigating},
    {"Refresh Filters", "", Navigating},
};

constexpr CommandRow hiding[] = {
    {"Hide Selected Row(s)", "", Navigating},
    {"Hide Selected Column(s)", "", Navigating},
    {"Hide All But Selected Row(s)", "", Navigating},
    {"Hide All But Selected Column(s)", "", Navigating},
    {"Hide Empty Row(s)", "", Navigating},
    {"Hide Empty Column(s)", "", Navigating},
};

constexpr CommandRow showing[] = {
    {"Show All Hidden Row(s)", "", Navigating},
    {"Show All Hidden Column(s)", "", Navigating},
    {"Show Hidden Row(s) in Selection", "", Navigating},
    {"Show Hidden Column(s) in Selection", "", Navigating},
    {"Show Empty Row(s)", "", Navigating},
    {"Show Empty Column(s)", "", Navigating},
};

constexpr CommandGroup groups[] = {
    {"Data/Filter", adding},    {"Data/Filter", filteringBySelection}, {"Data/Filter", removing},
    {"Data/Hide/Show", hiding}, {"Data/Hide/Show", showing},
};

} // namespace

std::span<CommandGroup const> CommandTable::filterCommands() {
    return groups;
}
