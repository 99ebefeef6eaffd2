#include "commands/table/CommandTable.h"

namespace {

using enum Context;

constexpr CommandRow extending[] = {
    {"Select Up", "shift+up", TableActive, CellEditing},
    {"Select Down", "shift+down", TableActive, CellEditing},
    {"Select Left", "shift+left", TableActive, CellEditing},
    {"Select Right", "shift+right", TableActive, CellEditing},
};

constexpr CommandRow extendingByBlocks[] = {
    {"Select Up by a Block", "ctrl+shift+up", Navigating, CellEditing},
    {"Select Down by a Block", "ctrl+shift+down", Navigating, CellEditing},
    {"Select Left by a Block", "ctrl+shift+left", Navigating, CellEditing},
    {"Select Right by a Block", "ctrl+shift+right", Navigating, CellEditing},
};

constexpr CommandRow extendingToEdges[] = {
    {"Select Up to Top of Column (Header Excluded)", "ctrl+shift+home", Navigating, CellEditing},
    {"Select Down to Bottom of Column", "ctrl+shift+end", Navigating, CellEditing},
    {"Select Left To Start of Row (Header Excluded)", "shift+home", Navigating, CellEditing},
    {"Select Right to End of Row", "shift+end", Navigating, CellEditing},
};

constexpr CommandRow wholeLines[] = {
    {"Select Entire Column(s)", "ctrl+shift+c", Navigating, CellEditing},
    {"Select Entire Column(s) (Header Excluded)", "alt+shift+c", Navigating, CellEditing},
    {"Select Entire Row(s)", "ctrl+shift+r", Navigating, CellEditing},
    {"Select Entire Row(s) (Header Excluded)", "alt+shift+r", Navigating, CellEditing},
    {"Select Entire Table", "ctrl+shift+t|ctrl+a", Navigating, CellEditing},
};

constexpr CommandRow moving[] = {
    {"Move Selection Up", "alt+i", TableActive},
    {"Move Selection Down", "alt+k", TableActive},
    {"Move Selection Left", "alt+j", TableActive},
    {"Move Selection Right", "alt+l", TableActive},
};

constexpr CommandRow movingByBlocks[] = {
    {"Move Selection Up by a Block", "ctrl+up", Navigating, CellEditing},
    {"Move Selection Down by a Block", "ctrl+down", Navigating, CellEditing},
    {"Move Selection Left by a Block", "ctrl+left", Navigating, CellEditing},
    {"Move Selection Right by a Block", "ctrl+right", Navigating, CellEditing},
};

constexpr CommandRow inverting[] = {
    {"Invert Selection by Rows (Header Excluded)", "", Navigating, CellEditing},
    {"Invert Selection by Columns (Header Excluded)", "", Navigating, CellEditing},
};

constexpr CommandRow duplicates[] = {
    {"Select Duplicate Row(s)", "", Navigating, ReadOnly},
    {"Select Duplicate Column(s)", "", Navigating, ReadOnly},
};

constexpr CommandRow fromMainCell[] = {
    {"Select From Main Cell To ...", "", Navigating},
};

constexpr CommandRow duplicatesInPart[] = {
    {"Select Duplicate Rows (Based on Selected Columns Only)", "", Navigating, ReadOnly},
    {"Select Duplicate Columns (Based on Selected Rows Only)", "", Navigating, ReadOnly},
};

constexpr CommandRow matches[] = {
    {"Add Next Match to Selection", "ctrl+d", Navigating, CellEditing},
    {"Select All Matches", "ctrl+shift+d|alt+f3", Navigating, CellEditing},
};

constexpr CommandGroup groups[] = {
    {"Selection", extending},        {"Selection", extendingByBlocks},
    {"Selection", extendingToEdges}, {"Selection", wholeLines},
    {"Selection", moving},           {"Selection", movingByBlocks},
    {"Selection", inverting},        {"Selection", duplicates},
    {"Selection", fromMainCell},     {"Selection", duplicatesInPart},
    {"Selection", matches},
};

} // namespace

std::span<CommandGroup const> CommandTable::selectionCommands() {
    return groups;
}
