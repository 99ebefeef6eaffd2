#pragma once

#include "commands/ScopeType.h"
#include "commands/SettingType.h"
#include "core/Context.h"

#include <span>

/// One command as the program is built with it.
struct CommandRow {
    char const* text;                 ///< the name, with "&" before the letter that picks it in its menu
    char const* shortcut;             ///< in the grammar of getKeySequenceList
    Context required;                 ///< bits that must all be present, or Context::Any
    Context excluded = Context::None; ///< bits of which none may be present
    ScopeType scope = ScopeType::Command;
    SettingType setting = SettingType::None; ///< the setting that the command changes
    char const* menuText = nullptr;          ///< what the menu shows, if not `text`
};

/// Commands of one kind, which stand together in their menu between separators.
struct CommandGroup {
    char const* menu; ///< the path, such as "Data/Case"; empty if no menu shows these commands
    std::span<CommandRow const> rows;
};

/// All commands, by topic. Groups of a menu and rows of a group are in the order of the menu.
namespace CommandTable {

std::span<CommandGroup const> fileCommands();
std::span<CommandGroup const> editCommands();
std::span<CommandGroup const> arrangementCommands();
std::span<CommandGroup const> contentCommands();
std::span<CommandGroup const> filterCommands();
std::span<CommandGroup const> selectionCommands();
std::span<CommandGroup const> findCommands();
std::span<CommandGroup const> viewCommands();
std::span<CommandGroup const> toolsCommands();
std::span<CommandGroup const> goToCommands();
std::span<CommandGroup const> helpCommands();
std::span<CommandGroup const> unlistedCommands();

/// The groups of all topics.
std::span<CommandGroup const> allGroups();

} // namespace CommandTable
