#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;

constexpr CommandRow closingTabs[] = {
    {"Close All Files Except Current", "", Navigating},
};

constexpr CommandRow switchingTabs[] = {
    {"Switch to Tab 1", "alt+1", Navigating}, {"Switch to Tab 2", "alt+2", Navigating},
    {"Switch to Tab 3", "alt+3", Navigating}, {"Switch to Tab 4", "alt+4", Navigating},
    {"Switch to Tab 5", "alt+5", Navigating}, {"Switch to Tab 6", "alt+6", Navigating},
    {"Switch to Tab 7", "alt+7", Navigating}, {"Switch to Tab 8", "alt+8", Navigating},
    {"Switch to Tab 9", "alt+9", Navigating}, {"Switch to Tab 10", "alt+0", Navigating},
};

constexpr CommandRow unlistedSettings[] = {
    {"Toggle Show Editor Pane", "ctrl+k,ctrl+e", Any, None, Global, SettingType::ShowEditorPane},
    {"Toggle Enable Check for Updates", "", Any, None, Global, SettingType::EnableCheckForUpdates},
    {"Toggle Detect Imported File Type Upon Opening File", "", Any, None, Global,
     SettingType::DetectImportedFileTypeUponOpeningFile},
};

constexpr CommandGroup groups[] = {
    {"", closingTabs},
    {"", switchingTabs},
    {"", unlistedSettings},
};

} // namespace

std::span<CommandGroup const> CommandTable::unlistedCommands() {
    return groups;
}
