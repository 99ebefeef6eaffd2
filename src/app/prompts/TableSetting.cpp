#include "app/prompts/TableSetting.h"

#include "commands/Settings.h"
#include "view/TableView.h"

#include <algorithm>

namespace {

template <bool (TableView::*isOn)() const>
QVariant switchOf(TableView const& table) {
    return (table.*isOn)();
}

template <auto get>
QVariant ofModel(TableView const& table) {
    return static_cast<int>((table.tableModel()->*get)());
}

template <QString (TableModel::*get)() const>
QVariant delimiterOf(TableView const& table) {
    return (table.tableModel()->*get)();
}

constexpr TableSetting TableSettings[] = {
    {SettingType::AutoFitColumnWidth, switchOf<&TableView::isAutoFitColWidth>},
    {SettingType::AutoFitRowHeight, switchOf<&TableView::isAutoFitRowHeight>},
    {SettingType::DelimiterSave, delimiterOf<&TableModel::getSaveDelimiter>},
    {SettingType::DelimiterLoad, delimiterOf<&TableModel::getDelimiter>},
    {SettingType::EncodingSave, ofModel<&TableModel::getEncoding>},
    {SettingType::EncodingLoad, ofModel<&TableModel::getEncoding>},
    {SettingType::FirstColumnIndex, [](TableView const& table) { return QVariant(table.getFirstColIndex()); },
     [](TableView& table, int value) { table.setFirstColIndex(value, true, false); }},
    {SettingType::FirstRowIndex, ofModel<&TableModel::getFirstRowIndex>,
     [](TableView& table, int value) { table.setFirstRowIndex(value, true); }},
    {SettingType::FreezeHeaderColumns, switchOf<&TableView::areHeaderColsFrozen>},
    {SettingType::FreezeHeaderRows, switchOf<&TableView::areHeaderRowsFrozen>},
    {SettingType::HighlightHeaderColumns, switchOf<&TableView::areHeaderColsHighlighted>},
    {SettingType::HighlightHeaderRows, switchOf<&TableView::areHeaderRowsHighlighted>},
    {SettingType::LineEnding, ofModel<&TableModel::getLineEnding>},
    {SettingType::MaximumColumnWidthForAutoFit,
     [](TableView const& table) { return QVariant(table.getMaximumColumnWidth()); },
     [](TableView& table, int value) { table.setMaximumColumnWidth(value, true); }},
    {SettingType::MaximumRowHeightForAutoFit,
     [](TableView const& table) { return QVariant(table.getMaximumRowHeight()); },
     [](TableView& table, int value) { table.setMaximumRowHeight(value, true); }},
    {SettingType::NumberOfHeaderColumns, ofModel<&TableModel::getNumHeaderCols>,
     [](TableView& table, int value) { table.setNumberOfHeaderColumns(value, true); }},
    {SettingType::NumberOfHeaderRows, ofModel<&TableModel::getNumVisibleHeaderRows>,
     [](TableView& table, int value) { table.setNumberOfHeaderRows(value, true); }},
    {SettingType::ParsingStandardSave, ofModel<&TableModel::getParsingStandard>},
    {SettingType::ParsingStandardLoad, ofModel<&TableModel::getParsingStandard>},
    {SettingType::ReadOnly, switchOf<&TableView::isReadOnly>},
};

} // namespace

TableSetting const* TableSetting::find(SettingType type) {
    auto const* const found = std::find_if(std::begin(TableSettings), std::end(TableSettings),
                                           [type](TableSetting const& setting) { return setting.type == type; });
    return found == std::end(TableSettings) ? nullptr : found;
}

Setting TableSetting::present(SettingType type, Settings const& ofProgram, TableView const& table) {
    Setting setting = ofProgram.get(type);
    if (TableSetting const* const ofTable = find(type)) {
        setting.value = ofTable->get(table);
    }
    return setting;
}
