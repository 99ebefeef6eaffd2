#include "app/prompts/TableSetting.h"

#include "view/TableView.h"

#include <algorithm>

namespace {

constexpr TableSetting TableSettings[] = {
    {SettingType::MaximumRowHeightForAutoFit, [](TableView const& table) { return table.getMaximumRowHeight(); },
     [](TableView& table, int value) { table.setMaximumRowHeight(value, true); }},
    {SettingType::MaximumColumnWidthForAutoFit, [](TableView const& table) { return table.getMaximumColumnWidth(); },
     [](TableView& table, int value) { table.setMaximumColumnWidth(value, true); }},
    {SettingType::NumberOfHeaderRows,
     [](TableView const& table) { return table.tableModel()->getNumVisibleHeaderRows(); },
     [](TableView& table, int value) { table.setNumberOfHeaderRows(value, true); }},
    {SettingType::NumberOfHeaderColumns, [](TableView const& table) { return table.tableModel()->getNumHeaderCols(); },
     [](TableView& table, int value) { table.setNumberOfHeaderColumns(value, true); }},
    {SettingType::FirstRowIndex, [](TableView const& table) { return table.tableModel()->getFirstRowIndex(); },
     [](TableView& table, int value) { table.setFirstRowIndex(value, true); }},
    {SettingType::FirstColumnIndex, [](TableView const& table) { return table.tableModel()->getFirstColIndex(); },
     [](TableView& table, int value) { table.setFirstColIndex(value, true, false); }},
};

} // namespace

TableSetting const* TableSetting::find(SettingType type) {
    auto const* const found = std::find_if(std::begin(TableSettings), std::end(TableSettings),
                                           [type](TableSetting const& setting) { return setting.type == type; });
    return found == std::end(TableSettings) ? nullptr : found;
}
