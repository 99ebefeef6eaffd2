#include "commands/table/CommandTable.h"

namespace {

using enum Context;
using ScopeType::Global;

constexpr CommandRow letterCase[] = {
    {"Upper Case", "ctrl+k,ctrl+u", TableActive, ReadOnly},
    {"Lower Case", "ctrl+k,ctrl+l", TableActive, ReadOnly},
    {"Title Case", "", TableActive, ReadOnly},
};

constexpr CommandRow identifierCase[] = {
    {"Upper Camel Case", "", TableActive, ReadOnly},   {"Lower Camel Case", "", TableActive, ReadOnly},
    {"Upper Snake Case", "", TableActive, ReadOnly},   {"Lower Snake Case", "", TableActive, ReadOnly},
    {"Convert to Acronym", "", TableActive, ReadOnly},
};

constexpr CommandRow formats[] = {
    {"Convert Date/Time Format", "", TableActive, ReadOnly},
    {"Convert Number Format", "", TableActive, ReadOnly},
};

constexpr CommandRow timeStamp[] = {
    {"Place Current Date/Time Stamp (Now) in Selected Cells", "", TableActive, ReadOnly},
};

constexpr CommandRow zeros[] = {
    {"Zero-Fill Whole Numbers", "", Navigating, ReadOnly},
    {"Remove Leading Zeros", "", Navigating, ReadOnly},
};

constexpr CommandRow randomNumbers[] = {
    {"Random Integers in Selected Cells", "", Navigating, ReadOnly},
    {"Random Decimals (Floats) in Selected Cells", "", Navigating, ReadOnly},
};

constexpr CommandRow decimals[] = {
    {"Set Number of Decimals", "", Navigating, ReadOnly},
};

constexpr CommandRow filling[] = {
    {"Copy Main Cell Contents to All Selected Cells", "", TableActive, ReadOnly},
    {"Fill Selected Cells with Series", "ctrl+alt+n", Navigating, ReadOnly},
};

constexpr CommandRow reshaping[] = {
    {"Reshape Selected Cells Row-Wise", "", Navigating, ReadOnly},
    {"Reshape Selected Cells Column-Wise", "", Navigating, ReadOnly},
};

constexpr CommandRow joining[] = {
    {"Join Selected Cells Horizontally", "", Navigating, ReadOnly},
    {"Join Selected Cells Vertically", "", Navigating, ReadOnly},
    {"Join Selected Cells Horizontally, Move Rest of Row Left", "", Navigating, ReadOnly},
};

constexpr CommandRow splitting[] = {
    {"Split Selected Cells Horizontally", "", Navigating, ReadOnly},
    {"Split Selected Cells Vertically", "", Navigating, ReadOnly},
    {"Split Selected Cells Horizontally, Move Rest of Row Right", "ctrl+k,ctrl+s", Navigating, ReadOnly},
};

constexpr CommandRow keeping[] = {
    {"Keep Only Left Part of Selected Cells", "", Navigating, ReadOnly},
    {"Keep Only Middle Part of Selected Cells", "", Navigating, ReadOnly},
    {"Keep Only Right Part of Selected Cells", "", Navigating, ReadOnly},
};

constexpr CommandRow affixes[] = {
    {"&Prepend Cell Contents", "", Navigating, ReadOnly},
    {"&Append Cell Contents", "", Navigating, ReadOnly},
    {"&Trim Selected Cell(s)", "", Navigating, ReadOnly},
};

constexpr CommandRow generating[] = {
    {"Fill Selected Cells with UUID/GUID", "", TableActive, ReadOnly, ScopeType::Command, SettingType::None,
     "List Character &Encodings"},
    {"&List Character Encodings", "", TableActive, ReadOnly},
};

constexpr CommandRow wholeTable[] = {
    {"&Remove Extraneous Rows and Columns", "", Navigating, ReadOnly},
    {"Add or Update &ID Column", "", TableActive, ReadOnly},
    {"Parse Selected Cell Contents as Table", "", TableActive, ReadOnly},
};

constexpr CommandRow dataSettings[] = {
    {"Set UUID Type", "", Any, None, Global, SettingType::UUIDType},
};

constexpr CommandGroup groups[] = {
    {"Data/Case", letterCase},
    {"Data/Case", identifierCase},
    {"Data/Format", formats},
    {"Data/Format", timeStamp},
    {"Data/Numbers", zeros},
    {"Data/Numbers", randomNumbers},
    {"Data/Numbers", decimals},
    {"Data/Multi-cell", filling},
    {"Data/Multi-cell", reshaping},
    {"Data/String Manipulation", joining},
    {"Data/String Manipulation", splitting},
    {"Data/String Manipulation", keeping},
    {"Data", affixes},
    {"Data", generating},
    {"Data", wholeTable},
    {"Data", dataSettings},
};

} // namespace

std::span<CommandGroup const> CommandTable::contentCommands() {
    return groups;
}
