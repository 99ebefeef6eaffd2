#include "app/prompts/TableSetting.h"

#include "view/TableView.h"

#include <algorithm>

namespace {

template <auto set>
void onModel(TableView& table, int value) {
    TableModel& model = *table.tableModel();
    (model.*set)(value);
    emit model.refreshHeadersSignal();
    table.refreshView();
}

constexpr TableSetting TableSettings[] = {
    {SettingType::MaximumRowHeightForAutoFit, [](TableView const& table) { return table.getMaximumRowHeight(); },
     [](TableView& table, int value) { table.setMaximumRowHeight(value, true); }},
    {SettingType::MaximumColumnWidthForAutoFit, [](TableView const& table) { return table.getMaximumColumnWidth(); },
     [](TableView& table, int value) { table.setMaximumColumnWidth(value, true); }},
    {SettingType::NumberOfHeaderRows,
     [](TableView const& table) { return table.tableModel()->getNumVisibleHeaderRows(); },
     onModel<&TableModel::setNumberOfHeaderRows>},
    {SettingType::NumberOfHeaderColumns, [](TableView const& table) { return table.tableModel()->getNumHeaderCols(); },
     onModel<&TableModel::setNumberOfHeaderCols>},
    {SettingType::FirstRowIndex, [](TableView const& table) { return table.tableModel()->getFirstRowIndex(); },
     onModel<&TableModel::setFirstRowIndex>},
    {SettingType::FirstColumnIndex, [](TableView const& table) { return table.tableModel()->getFirstColIndex(); },
     onModel<&TableModel::setFirstColIndex>},
};

} // namespace

TableSetting const* TableSetting::find(SettingType type) {
    auto const* const found = std::find_if(std::begin(TableSettings), std::end(TableSettings),
                                           [type](TableSetting const& setting) { return setting.type == type; });
    return found == std::end(TableSettings) ? nullptr : found;
}
