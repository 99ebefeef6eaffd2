#include "commands/table/CommandTable.h"

namespace {

using enum Context;

constexpr CommandRow launcher[] = {
    {"&Command Launcher", "ctrl+l|ctrl+shift+p", TableActive},
};

constexpr CommandRow analysisWindow[] = {
    {"Open File Analysis &Window", "", Any},
};

constexpr CommandRow statistics[] = {
    {"&Statistics - Selected Columns", "", Navigating},
    {"S&tatistics - All Columns", "", Navigating},
    {"Statistics - Se&lected Cells", "", Navigating},
    {"Statistics - Selected Cells &by Columns", "", Navigating},
};

constexpr CommandRow columnAnalysis[] = {
    {"Column &Analysis - Selected Columns", "", Navigating},
    {"Column A&nalysis - All Columns", "", Navigating},
};

constexpr CommandRow otherAnalysis[] = {
    {"&Unique Values - Selected Column", "", Navigating},
    {"&Pivot Table - Selected Columns", "", Navigating},
    {"Column Loo&kup", "", Navigating},
};

constexpr CommandGroup groups[] = {
    {"Tools", launcher},       {"Tools", analysisWindow}, {"Tools", statistics},
    {"Tools", columnAnalysis}, {"Tools", otherAnalysis},
};

} // namespace

std::span<CommandGroup const> CommandTable::toolsCommands() {
    return groups;
}
