#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;

constexpr CommandRow targets[] = {
    {"Go to &File", "ctrl+p|ctrl+t", Any},
    {"Go to &Cell", "ctrl+g", TableActive},
};

constexpr CommandRow tabs[] = {
    {"Switch to Tab on the &Right", "ctrl+pgdown", TableActive},
    {"Switch to Tab on the &Left", "ctrl+pgup", TableActive},
};

constexpr CommandRow scrolling[] = {
    {"Scroll Up One Screen", "", TableActive},
    {"Scroll Down One Screen", "", TableActive},
    {"Scroll Left One Screen", "", TableActive},
    {"Scroll Right One Screen", "", TableActive},
};

constexpr CommandRow scrollingToEdges[] = {
    {"Scroll to Top", "", TableActive},
    {"Scroll to Bottom", "", TableActive},
    {"Scroll to Far Left", "", TableActive},
    {"Scroll to Far Right", "", TableActive},
};

constexpr CommandRow going[] = {
    {"Go Up One Screen", "pgup", TableActive},
    {"Go Down One Screen", "pgdown", TableActive},
    {"Go Left One Screen", "alt+pgup|home", TableActive},
    {"Go Right One Screen", "alt+pgdown|end", TableActive},
};

constexpr CommandRow goingToEdges[] = {
    {"Go to Top", "ctrl+home", TableActive},
    {"Go to Bottom", "ctrl+end", TableActive},
    {"Go to Far Left", "ctrl+alt+home", TableActive},
    {"Go to Far Right", "ctrl+alt+end", TableActive},
};

constexpr CommandRow outside[] = {
    {"Follow Selected &Hyperlink(s)", "ctrl+r", Any},
    {"&Email Selected Email Addresses", "", Any},
    {"Web &Search for Selected Terms", "", Any},
    {"Web Search for Selected Places in &Map", "", Any},
};

constexpr CommandRow goToSettings[] = {
    {"Set Search Engine", "", Any, None, Global, SettingType::SearchEngine},
    {"Set Online Map", "", Any, None, Global, SettingType::OnlineMap},
};

constexpr CommandGroup groups[] = {
    {"Go To", targets}, {"Go To", tabs},         {"Go To", scrolling}, {"Go To", scrollingToEdges},
    {"Go To", going},   {"Go To", goingToEdges}, {"Go To", outside},   {"Go To", goToSettings},
};

} // namespace

std::span<CommandGroup const> CommandTable::goToCommands() {
    return groups;
}
