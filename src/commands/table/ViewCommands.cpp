#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;
using ScopeType::Table;

constexpr CommandRow panes[] = {
    {"Toggle Show Tab Bar", "ctrl+k,ctrl+t", Any, None, Global, SettingType::ShowTabBar},
    {"Toggle Show Side Bar", "ctrl+k,ctrl+b", Any, None, Global, SettingType::ShowSideBar},
    {"Toggle Show File Metadata", "ctrl+k,ctrl+d", Any, None, Global, SettingType::ShowFileMetadata},
    {"Toggle Show Side Bar Open Files", "", Any, None, Global, SettingType::ShowSideBarOpenFiles},
    {"Toggle Show Side Bar Folders", "", Any, None, Global, SettingType::ShowSideBarFolders},
};

constexpr CommandRow labels[] = {
    {"Toggle Show Row Labels", "", Any, None, Global, SettingType::ShowRowLabels},
    {"Toggle Show Column Labels", "", Any, None, Global, SettingType::ShowColumnLabels},
    {"Set First Row Index", "", Navigating, None, Table, SettingType::FirstRowIndex},
    {"Set First Column Index", "", Navigating, None, Table, SettingType::FirstColumnIndex},
    {"Toggle Represent Columns as Letters", "", Any, None, Global, SettingType::RepresentColumnsAsLetters},
};

constexpr CommandRow font[] = {
    {"Set Font", "", Any, None, Global, SettingType::Font},
    {"Set Text Size", "", Any, None, Global, SettingType::TextSize},
    {"Set Theme", "", Any, None, Global, SettingType::Theme},
};

constexpr CommandRow shading[] = {
    {"Toggle Shade Every Other Row", "", Any, None, Global, SettingType::ShadeEveryOtherRow},
    {"Toggle Shade Every Other Column", "", Any, None, Global, SettingType::ShadeEveryOtherColumn},
    {"Toggle Highlight Main Selected Cell's Row", "", Any, None, Global, SettingType::HighlightMainSelectedCellsRow},
    {"Toggle Highlight Main Selected Cell's Column", "", Any, None, Global,
     SettingType::HighlightMainSelectedCellsColumn},
};

constexpr CommandRow snapping[] = {
    {"Toggle Snap to Row After Scrolling", "", Any, None, Global, SettingType::SnapToRowAfterScrolling},
    {"Toggle Snap to Column After Scrolling", "", Any, None, Global, SettingType::SnapToColumnAfterScrolling},
};

constexpr CommandRow minimumSize[] = {
    {"Set Minimum Number of Table Rows", "", Any, ReadOnly, Global, SettingType::MinimumNumberOfTableRows},
    {"Set Minimum Number of Table Columns", "", Any, ReadOnly, Global, SettingType::MinimumNumberOfTableColumns},
};

constexpr CommandRow buffer[] = {
    {"Set Number of Buffer Rows", "", Any, ReadOnly, Global, SettingType::NumberOfBufferRows},
    {"Set Number of Buffer Columns", "", Any, ReadOnly, Global, SettingType::NumberOfBufferColumns},
};

constexpr CommandRow sizes[] = {
    {"Set Selected Row Height(s)", "", TableActive},
    {"Set Selected Column Width(s)", "", TableActive},
};

constexpr CommandRow sizeSettings[] = {
    {"Set Default Row Height", "", Navigating, None, Global, SettingType::DefaultRowHeight},
    {"Set Default Column Width", "", Navigating, None, Global, SettingType::DefaultColumnWidth},
    {"Set Maximum Row Height for Auto-Fit", "", Navigating, None, Table, SettingType::MaximumRowHeightForAutoFit},
    {"Set Maximum Column Width for Auto-Fit", "", Navigating, None, Table, SettingType::MaximumColumnWidthForAutoFit},
    {"Toggle Auto-Fit Row Height", "", Navigating, None, Table, SettingType::AutoFitRowHeight},
    {"Toggle Auto-Fit Column Width", "", Navigating, None, Table, SettingType::AutoFitColumnWidth},
};

constexpr CommandRow settingHeaders[] = {
    {"Set Header Rows to Selected Row", "", Navigating},
    {"Set Header Columns to Selected Column", "", Navigating},
    {"Set Headers to Selected Cell", "", Navigating},
};

constexpr CommandRow removingHeaders[] = {
    {"Remove Header Rows", "", Navigating},
    {"Remove Header Columns", "", Navigating},
    {"Remove All Headers", "", Navigating},
};

constexpr CommandRow freezing[] = {
    {"Toggle Freeze Header Rows and Columns", "", Navigating},
};

constexpr CommandRow headerSettings[] = {
    {"Set Number of Header Rows", "", Navigating, None, Table, SettingType::NumberOfHeaderRows},
    {"Set Number of Header Columns", "", Navigating, None, Table, SettingType::NumberOfHeaderColumns},
    {"Toggle Highlight Header Rows", "", Navigating, None, Table, SettingType::HighlightHeaderRows},
    {"Toggle Highlight Header Columns", "", Navigating, None, Table, SettingType::HighlightHeaderColumns},
    {"Toggle Freeze Header Rows", "", Navigating, None, Table, SettingType::FreezeHeaderRows},
    {"Toggle Freeze Header Columns", "", Navigating, None, Table, SettingType::FreezeHeaderColumns},
};

constexpr CommandGroup groups[] = {
    {"View", panes},
    {"View", labels},
    {"View", font},
    {"View", shading},
    {"View", snapping},
    {"View/Table Size", minimumSize},
    {"View/Table Size", buffer},
    {"View/Grid Size", sizes},
    {"View/Grid Size", sizeSettings},
    {"View/Headers", settingHeaders},
    {"View/Headers", removingHeaders},
    {"View/Headers", freezing},
    {"View/Headers", headerSettings},
};

} // namespace

std::span<CommandGroup const> CommandTable::viewCommands() {
    return groups;
}
