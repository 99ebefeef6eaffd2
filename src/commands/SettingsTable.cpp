#include "commands/SettingsTable.h"

namespace {

using enum SettingDataType;
using ScopeType::Global;
using ScopeType::Table;

/// Sizes that a single row, column or text still makes sense with. How many lines of them a grid can show is up to it.
constexpr NumberRange rowHeights{1, 2000};
constexpr NumberRange columnWidths{1, 20000};
constexpr NumberRange textSizes{1, 500};
constexpr NumberRange anyIndex;
constexpr NumberRange fromZero{0};
constexpr NumberRange fromOne{1};

constexpr SettingRow number(SettingType type, char const* name, ScopeType scope, char const* defaultText,
                            SettingDataType dataType, NumberRange range) {
    return {type, name, scope, dataType, defaultText, true, nullptr, nullptr, range};
}

constexpr SettingRow rows[] = {
    {SettingType::AutoFitColumnWidth, "Auto-Fit Column Width", Table, Bool, "true", true, "Auto-Fit", "Not Auto-Fit"},
    {SettingType::AutoFitRowHeight, "Auto-Fit Row Height", Table, Bool, "false", true, "Auto-Fit", "Not Auto-Fit"},
    {SettingType::CaseSensitiveSorting, "Case Sensitive Sorting", Global, Bool, "true", true, "Case Sensitive",
     "Case Insensitive"},
    number(SettingType::DefaultColumnWidth, "Default Column Width", Global, "80", IntegerFromOne, columnWidths),
    number(SettingType::DefaultRowHeight, "Default Row Height", Global, "24", IntegerFromOne, rowHeights),
    {SettingType::DelimiterSave, "Delimiter", Table, String, ",", false},
    {SettingType::DelimiterLoad, "Delimiter", Table, String, ",", false},
    {SettingType::DetectImportedFileTypeUponOpeningFile, "Detect Imported File Type Upon Opening File", Global, Bool,
     "true", true, "Detect", "Don't Detect"},
    {SettingType::LetEditorPaneConsumeNavigationKeystrokes, "Let Editor Pane Consume Navigation Keystrokes", Global,
     Bool, "true", true, "Enabled", "Disabled"},
    {SettingType::EnableCheckForUpdates, "Enable Check for Updates", Global, Bool, "true", true, "Enabled", "Disabled"},
    {SettingType::EncodingSave, "Encoding", Table, Encoding, "UTF-8", false},
    {SettingType::EncodingLoad, "Encoding", Table, Encoding, "UTF-8", false},
    number(SettingType::FirstColumnIndex, "First Column Index", Table, "0", Integer, anyIndex),
    number(SettingType::FirstRowIndex, "First Row Index", Table, "0", Integer, anyIndex),
    {SettingType::Font, "Font", Global, Font, "Liberation Sans"},
    {SettingType::FreezeHeaderColumns, "Freeze Header Columns", Table, Bool, "false", true, "Frozen", "Not Frozen"},
    {SettingType::FreezeHeaderRows, "Freeze Header Rows", Table, Bool, "true", true, "Frozen", "Not Frozen"},
    {SettingType::HighlightHeaderColumns, "Highlight Header Columns", Table, Bool, "true", true, "Highlighted",
     "Not Highlighted"},
    {SettingType::HighlightHeaderRows, "Highlight Header Rows", Table, Bool, "true", true, "Highlighted",
     "Not Highlighted"},
    {SettingType::HighlightMainSelectedCellsColumn, "Highlight Main Selected Cell's Column", Global, Bool, "false",
     true, "Highlighted", "Not Highlighted"},
    {SettingType::HighlightMainSelectedCellsRow, "Highlight Main Selected Cell's Row", Global, Bool, "false", true,
     "Highlighted", "Not Highlighted"},
    {SettingType::LineEnding, "Line Ending", Table, LineEnding, "", false},
    number(SettingType::MaximumColumnWidthForAutoFit, "Maximum Column Width for Auto-Fit", Table, "800", IntegerFromOne,
           fromOne),
    number(SettingType::MaximumRowHeightForAutoFit, "Maximum Row Height for Auto-Fit", Table, "240", IntegerFromOne,
           fromOne),
    number(SettingType::MinimumNumberOfTableColumns, "Minimum Number of Table Columns", Global, "50", IntegerFromOne,
           fromOne),
    number(SettingType::MinimumNumberOfTableRows, "Minimum Number of Table Rows", Global, "50", IntegerFromOne,
           fromOne),
    number(SettingType::MinimumFileSizeForReadOnlyModeQueryMB, "Minimum File Size for Read-Only Mode Query (MB)",
           Global, "100", IntegerFromZero, fromZero),
    number(SettingType::NumberOfBufferColumns, "Number of Buffer Columns", Global, "2", IntegerFromZero, fromZero),
    number(SettingType::NumberOfBufferRows, "Number of Buffer Rows", Global, "2", IntegerFromZero, fromZero),
    number(SettingType::NumberOfHeaderColumns, "Number of Header Columns", Table, "0", IntegerFromZero, fromZero),
    number(SettingType::NumberOfHeaderRows, "Number of Header Rows", Table, "1", IntegerFromZero, fromZero),
    {SettingType::OnlineMap, "Online Map", Global, Domain, "duckduckgo.com"},
    {SettingType::ParsingStandardSave, "Parsing Standard", Table, ParsingStandard, "RFC 4180", false},
    {SettingType::ParsingStandardLoad, "Parsing Standard", Table, ParsingStandard, "RFC 4180", false},
    {SettingType::ReadOnly, "Read-Only", Table, Bool, "false", true, "Read-only", "Editable"},
    {SettingType::BehaviorWhenFileIsChangedExternally, "Behavior When File Is Changed Externally", Global,
     RefreshBehavior, "refresh"},
    {SettingType::RemoveExtraneousRowsColumnsOnFileSave, "Remove Extraneous Rows/Columns on File Save", Global, Bool,
     "false", true, "True", "False"},
    {SettingType::RepresentColumnsAsLetters, "Represent Columns as Letters", Global, Bool, "false", true, "Letters",
     "Numbers"},
    {SettingType::RetainSortAndFiltersUponFileRefresh, "Retain Sort and Filters Upon File Refresh", Global, Bool,
     "true", true, "Retained", "Not Retained"},
    {SettingType::SaveAfterEachEdit, "Save After Each Edit", Global, Bool, "false", true, "Enabled", "Disabled"},
    {SettingType::SaveWithTrailingDelimiters, "Save With Trailing Delimiters", Global, Bool, "true", true, "Enabled",
     "Disabled"},
    {SettingType::SearchEngine, "Search Engine", Global, Domain, "duckduckgo.com"},
    {SettingType::ShadeEveryOtherColumn, "Shade Every Other Column", Global, Bool, "false", true, "Shaded",
     "Not Shaded"},
    {SettingType::ShadeEveryOtherRow, "Shade Every Other Row", Global, Bool, "false", true, "Shaded", "Not Shaded"},
    {SettingType::ShowColumnLabels, "Show Column Labels", Global, Bool, "true", true, "Show", "Hide"},
    {SettingType::ShowEditorPane, "Show Editor Pane", Global, Bool, "false", false, "Shown", "Hidden"},
    {SettingType::ShowFileMetadata, "Show File Metadata", Global, Bool, "false", false, "Shown", "Hidden"},
    {SettingType::ShowRowLabels, "Show Row Labels", Global, Bool, "true", true, "Show", "Hide"},
    {SettingType::ShowSideBarFolders, "Show Side Bar Folders", Global, Bool, "true", false, "Shown", "Hidden"},
    {SettingType::ShowSideBarOpenFiles, "Show Side Bar Open Files", Global, Bool, "true", false, "Shown", "Hidden"},
    {SettingType::ShowSideBar, "Show Side Bar", Global, Bool, "true", false, "Shown", "Hidden"},
    {SettingType::ShowTabBar, "Show Tab Bar", Global, Bool, "true", true, "Shown", "Hidden"},
    {SettingType::SnapToColumnAfterScrolling, "Snap to Column After Scrolling", Global, Bool, "false", true, "Snap",
     "Don't Snap"},
    {SettingType::SnapToRowAfterScrolling, "Snap to Row After Scrolling", Global, Bool, "true", true, "Snap",
     "Don't Snap"},
    {SettingType::SuppressAutoFitWarnings, "Suppress Auto-Fit Warnings", Global, Bool, "false", true, "Suppress",
     "Don't Suppress"},
    {SettingType::TextEditor, "Text Editor", Global, Filepath, "/usr/bin/gedit"},
    number(SettingType::TextSize, "Text Size", Global, "13", IntegerFromOne, textSizes),
    {SettingType::Theme, "Theme", Global, Theme, "dark"},
    {SettingType::UUIDType, "UUID Type", Global, UuidType, "v4"},
};

} // namespace

std::span<SettingRow const> settingsTable() {
    return rows;
}
