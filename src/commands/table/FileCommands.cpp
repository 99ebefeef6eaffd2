#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;
using ScopeType::Table;

constexpr CommandRow opening[] = {
    {"&New File", "ctrl+n", Any},        {"New &Window", "ctrl+shift+n", Any}, {"&Open File", "ctrl+o", Any},
    {"Open &Folder", "ctrl+alt+o", Any}, {"Open &Recent File", "", Any},
};

constexpr CommandRow saving[] = {
    {"&Save File", "ctrl+s", TableActive, ReadOnly},
    {"Save File &As", "ctrl+alt+s", TableActive},
    {"Save &Visible Data As", "", FiltersOrHiddenPresent},
    {"Save All Files", "ctrl+shift+s", TableActive},
};

constexpr CommandRow closing[] = {
    {"&Close File", "ctrl+w", TableActive},
    {"Close All Files", "", Navigating},
    {"Close Folder", "ctrl+alt+w", FolderOpen},
};

constexpr CommandRow exchanging[] = {
    {"&Print", "ctrl+alt+p", TableActive},
    {"&Import from JSON or XML", "", Any},
    {"E&xport to JSON or XML", "", TableActive},
    {"Export to PDF", "", TableActive},
};

constexpr CommandRow organizing[] = {
    {"Dup&licate File", "", FileOnDisk},
    {"Move File", "", FileOnDisk},
    {"Rename File", "", FileOnDisk},
    {"&Delete File", "", FileOnDisk},
};

constexpr CommandRow otherPrograms[] = {
    {"Sho&w File in File System", "", FileOnDisk},
    {"Open &Terminal to File's Directory", "", FileOnDisk},
    {"Open File in Text Editor", "", Any},
};

constexpr CommandRow fileSettings[] = {
    {"Set Behavior When File Is Changed Externally", "", Any, None, Global,
     SettingType::BehaviorWhenFileIsChangedExternally},
    {"Set Text Editor", "", Any, None, Global, SettingType::TextEditor},
    {"Toggle Save After Each Edit", "", Any, None, Global, SettingType::SaveAfterEachEdit},
    {"Toggle Remove Extraneous Rows/Columns on File Save", "", TableActive, None, Global,
     SettingType::RemoveExtraneousRowsColumnsOnFileSave},
};

constexpr CommandRow leaving[] = {
    {"&Exit", "", Any},
};

constexpr CommandRow reloading[] = {
    {"Reload File", "", FileOnDisk, ReadOnly},
    {"Reload File with Different Parameters", "", FileOnDisk, ReadOnly},
};

constexpr CommandRow reloadingSettings[] = {
    {"Reload File with Delimiter", "", FileOnDisk, None, Table, SettingType::DelimiterLoad},
    {"Reload File with Encoding", "", FileOnDisk, None, Table, SettingType::EncodingLoad},
    {"Reload File with Parsing Standard", "", FileOnDisk, None, Table, SettingType::ParsingStandardLoad},
};

constexpr CommandRow saveParameters[] = {
    {"Set Parameters for File Save", "", FileOnDisk, ReadOnly},
};

constexpr CommandRow saveSettings[] = {
    {"Set Delimiter for File Save", "", TableActive, ReadOnly, Table, SettingType::DelimiterSave},
    {"Set Line Ending for File Save", "", TableActive, None, Table, SettingType::LineEnding},
    {"Set Encoding for File Save", "", TableActive, ReadOnly, Table, SettingType::EncodingSave},
    {"Set Parsing Standard for File Save", "", TableActive, None, Table, SettingType::ParsingStandardSave},
    {"Toggle Save With Trailing Delimiters", "", TableActive, None, Global, SettingType::SaveWithTrailingDelimiters},
};

constexpr CommandRow location[] = {
    {"Copy File Path to Clipboard", "", Any},
    {"Copy Folder Path to Clipboard", "", Any},
    {"Copy File Name to Clipboard", "", Any},
};

constexpr CommandGroup groups[] = {
    {"File", opening},
    {"File", saving},
    {"File", closing},
    {"File", exchanging},
    {"File", organizing},
    {"File", otherPrograms},
    {"File", fileSettings},
    {"File", leaving},
    {"File/Reload", reloading},
    {"File/Reload", reloadingSettings},
    {"File/Save Options", saveParameters},
    {"File/Save Options", saveSettings},
    {"File/File Location Information", location},
};

} // namespace

std::span<CommandGroup const> CommandTable::fileCommands() {
    return groups;
}
