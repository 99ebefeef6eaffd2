#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;
using ScopeType::Table;

constexpr CommandRow history[] = {
    {"&Undo", "ctrl+z", TableActive},
    {"&Redo", "ctrl+y", TableActive},
};

constexpr CommandRow clipboard[] = {
    {"Cu&t Cell(s)", "ctrl+x", Navigating, ReadOnly},
    {"&Copy Cell(s)", "ctrl+c", Navigating},
    {"Copy Cell(s) with Header", "", Navigating},
    {"Copy Cell(s) to Markdown", "", Navigating},
    {"Copy Cell(s) to HTML", "", Navigating},
    {"&Paste Cell(s)", "ctrl+v", Navigating, ReadOnly},
    {"Paste Cell(s) (Special)", "ctrl+shift+v", Navigating, ReadOnly},
};

constexpr CommandRow editing[] = {
    {"&Edit Selected Cell", "ctrl+e|f2", Navigating, ReadOnly},
    {"&Stop Editing", "ctrl+e", CellEditing, ReadOnly},
};

constexpr CommandRow editSettings[] = {
    {"Toggle Read-Only", "", Any, None, Table, SettingType::ReadOnly},
    {"Set Minimum File Size for Read-Only Mode Query (MB)", "", Any, None, Global,
     SettingType::MinimumFileSizeForReadOnlyModeQueryMB},
    {"Toggle Retain Sort and Filters Upon File Refresh", "", Any, None, Global,
     SettingType::RetainSortAndFiltersUponFileRefresh},
    {"Toggle Let Editor Pane Consume Navigation Keystrokes", "", Any, None, Global,
     SettingType::LetEditorPaneConsumeNavigationKeystrokes},
};

constexpr CommandGroup groups[] = {
    {"Edit", history},
    {"Edit", clipboard},
    {"Edit", editing},
    {"Edit", editSettings},
};

} // namespace

std::span<CommandGroup const> CommandTable::editCommands() {
    return groups;
}
