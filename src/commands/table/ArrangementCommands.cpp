#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;

constexpr CommandRow movingContents[] = {
    {"Move Cell Contents Up", "alt+up", Navigating, ReadOnly},
    {"Move Cell Contents Down", "alt+down", Navigating, ReadOnly},
    {"Move Cell Contents Left", "alt+left", Navigating, ReadOnly},
    {"Move Cell Contents Right", "alt+right", Navigating, ReadOnly},
};

constexpr CommandRow movingLines[] = {
    {"Move Row(s) Up", "alt+shift+up", TableActive, ReadOnly},
    {"Move Row(s) Down", "alt+shift+down", TableActive, ReadOnly},
    {"Move Column(s) Left", "alt+shift+left", TableActive, ReadOnly},
    {"Move Column(s) Right", "alt+shift+right", TableActive, ReadOnly},
};

constexpr CommandRow movingTo[] = {
    {"Move Cell Contents To ...", "", TableActive, ReadOnly},
    {"Move Row(s) Just Above Row ...", "", TableActive, ReadOnly},
    {"Move Column(s) to the Left of Column ...", "", TableActive, ReadOnly},
};

constexpr CommandRow insertingLines[] = {
    {"Insert Row(s) Before", "alt+r", Navigating, ReadOnly},
    {"Insert Column(s) Before", "alt+c", Navigating, ReadOnly},
    {"Insert Row(s) After", "ctrl+enter", Navigating, ReadOnly},
    {"Insert Column(s) After", "ctrl+shift+enter", Navigating, ReadOnly},
};

constexpr CommandRow insertingManyLines[] = {
    {"Insert Row(s) Before Multiple Times", "", Navigating, ReadOnly},
    {"Insert Column(s) Before Multiple Times", "", Navigating, ReadOnly},
};

constexpr CommandRow insertingCells[] = {
    {"Insert Cells, Move Rest of Row Right", "alt+enter", Navigating, ReadOnly},
    {"Insert Cells, Move Rest of Column Down", "", Navigating, ReadOnly},
};

constexpr CommandRow transposing[] = {
    {"Transpose Table", "ctrl+alt+t", Navigating},
    {"Transpose Selected Cells", "", MultiCellSelection, ReadOnly},
};

constexpr CommandRow clearing[] = {
    {"Clear Cell Contents", "del|backspace", Navigating, ReadOnly},
};

constexpr CommandRow removingLines[] = {
    {"Remove Row(s)", "ctrl+shift+k", TableActive, ReadOnly},
    {"Remove Column(s)", "ctrl+shift+l", TableActive, ReadOnly},
};

constexpr CommandRow removingDuplicates[] = {
    {"Remove Duplicate Row(s)", "", Navigating, ReadOnly},
    {"Remove Duplicate Column(s)", "", Navigating, ReadOnly},
    {"Remove Duplicate Rows (Based on Selected Columns Only)", "", Navigating, ReadOnly},
    {"Remove Duplicate Columns (Based on Selected Rows Only)", "", Navigating, ReadOnly},
};

constexpr CommandRow removingEmpty[] = {
    {"Remove Empty Row(s)", "", Navigating, ReadOnly},
    {"Remove Empty Column(s)", "", Navigating, ReadOnly},
    {"Remove Empty Rows (Based on Selected Columns Only)", "", Navigating, ReadOnly},
    {"Remove Empty Columns (Based on Selected Rows Only)", "", Navigating, ReadOnly},
};

constexpr CommandRow removingCells[] = {
    {"Remove Selected Cells, Move Rest of Row Left", "alt+delete|alt+backspace", Navigating, ReadOnly},
    {"Remove Selected Cells, Move Rest of Column Up", "", Navigating, ReadOnly},
    {"Remove Selected Cells and the Rest of Their Rows", "ctrl+k,ctrl+k", Navigating, ReadOnly},
    {"Remove Selected Cells and the Rest of Their Columns", "ctrl+k,ctrl+j", Navigating, ReadOnly},
};

constexpr CommandRow removingConcealed[] = {
    {"Remove All Filtered Out and Hidden Data", "", Navigating, ReadOnly},
};

constexpr CommandRow sortingByColumn[] = {
    {"Sort Selected Column - Ascending", "", Navigating},
    {"Sort Selected Column - Descending", "", Navigating},
};

constexpr CommandRow sortingByRow[] = {
    {"Sort Selected Row - Ascending", "", Navigating},
    {"Sort Selected Row - Descending", "", Navigating},
};

constexpr CommandRow sortingCells[] = {
    {"Sort Selected Cells Horizontally - Ascending", "", Navigating},
    {"Sort Selected Cells Horizontally - Descending", "", Navigating},
    {"Sort Selected Cells Vertically - Ascending", "", Navigating},
    {"Sort Selected Cells Vertically - Descending", "", Navigating},
};

constexpr CommandRow sortSettings[] = {
    {"Toggle Case Sensitive Sorting", "", TableActive, None, Global, SettingType::CaseSensitiveSorting},
};

constexpr CommandRow duplicatingContents[] = {
    {"Duplicate Cell Contents To ...", "", TableActive, ReadOnly},
    {"Duplicate Selected Cell Contents Up", "ctrl+alt+up", TableActive, ReadOnly},
    {"Duplicate Selected Cell Contents Down", "ctrl+alt+down", TableActive, ReadOnly},
    {"Duplicate Selected Cell Contents Left", "ctrl+alt+left", TableActive, ReadOnly},
    {"Duplicate Selected Cell Contents Right", "ctrl+alt+right", TableActive, ReadOnly},
};

constexpr CommandRow duplicatingLines[] = {
    {"Duplicate Row(s)", "ctrl+alt+r", TableActive, ReadOnly},
    {"Duplicate Column(s)", "ctrl+alt+c", TableActive, ReadOnly},
    {"Duplicate Row(s) Multiple Times", "", TableActive, ReadOnly},
    {"Duplicate Column(s) Multiple Times", "", TableActive, ReadOnly},
};

constexpr CommandGroup groups[] = {
    {"Data/Move", movingContents},        {"Data/Move", movingLines},          {"Data/Move", movingTo},
    {"Data/Insert", insertingLines},      {"Data/Insert", insertingManyLines}, {"Data/Insert", insertingCells},
    {"Data/Transpose", transposing},      {"Data/Delete", clearing},           {"Data/Delete", removingLines},
    {"Data/Delete", removingDuplicates},  {"Data/Delete", removingEmpty},      {"Data/Delete", removingCells},
    {"Data/Delete", removingConcealed},   {"Data/Sort", sortingByColumn},      {"Data/Sort", sortingByRow},
    {"Data/Sort", sortingCells},          {"Data/Sort", sortSettings},         {"Data/Duplicate", duplicatingContents},
    {"Data/Duplicate", duplicatingLines},
};

} // namespace

std::span<CommandGroup const> CommandTable::arrangementCommands() {
    return groups;
}
