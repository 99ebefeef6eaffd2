#include "commands/table/CommandTable.h"

namespace {

using enum Context;

constexpr CommandRow preferences[] = {
    {"&Preferences", "", Any},
};

constexpr CommandRow preferenceFiles[] = {
    {"Edit &Settings", "", Any},
    {"Edit &Keyboard Shortcuts", "", Any},
    {"Edit &File Extension Options", "", Any},
};

constexpr CommandRow preferenceFolder[] = {
    {"&Open Preference File Folder", "", Any},
};

constexpr CommandRow requests[] = {
    {"Report a &Bug", "", Any},
    {"Request a &Feature", "", Any},
};

constexpr CommandRow feedback[] = {
    {"Take a &Survey", "", Any},
    {"&General Feedback/Questions", "", Any},
};

constexpr CommandRow learning[] = {
    {"&Documentation", "", Any},
    {"Open &Tutorial", "", Any},
    {"&Restore Tutorial to Default", "", Any},
};

constexpr CommandRow program[] = {
    {"&About", "", Any},
    {"Check for &Updates", "", Any},
    {"View &Changelog", "", Any},
};

constexpr CommandGroup groups[] = {
    {"Preferences", preferences},
    {"Preferences", preferenceFiles},
    {"Preferences", preferenceFolder},
    {"Contact Us", requests},
    {"Contact Us", feedback},
    {"Help", learning},
    {"Help", program},
};

} // namespace

std::span<CommandGroup const> CommandTable::helpCommands() {
    return groups;
}
