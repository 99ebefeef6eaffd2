// What the user has set, put in force in a table.

#include "view/HeaderView.h"
#include "view/TableView.h"

// What is set for tables are defaults for new ones: a table takes them once and keeps its own from then on.
void TableView::propagateSettings(Settings const& newSettings) {
    if (hasSettings) {
        settings.takeGlobalValues(newSettings);
    } else {
        settings = newSettings;
    }
    applyGlobalSettings();
    if (!hasSettings) {
        applyTableSettings();
    }
    hasSettings = true;
    refreshHeaders();
    refreshView();
}

void TableView::applyGlobalSettings() {
    TableModel& model = *tableModel();
    auto const setIfNew = [this](auto&& setter, auto const& present, auto const& wanted) {
        if (!hasSettings || present != wanted)
            (this->*setter)(wanted);
    };
    auto const on = [this](SettingType type) { return settings.getValueBool(type); };
    auto const number = [this](SettingType type) { return settings.getValueInt(type); };
    // Sizes and fonts fit the whole table anew, so only what has changed is set.
    setIfNew(&TableView::setDefaultRowHeight, defaultRowHeight, number(SettingType::DefaultRowHeight));
    setIfNew(&TableView::setDefaultColumnWidth, defaultColumnWidth, number(SettingType::DefaultColumnWidth));
    setLetEditorPaneConsumeNavigationKeystrokes(on(SettingType::LetEditorPaneConsumeNavigationKeystrokes));
    model.setShadeEveryOtherRow(on(SettingType::ShadeEveryOtherRow));
    model.setShadeEveryOtherColumn(on(SettingType::ShadeEveryOtherColumn));
    model.setHighlightMainCellRow(on(SettingType::HighlightMainSelectedCellsRow));
    model.setHighlightMainCellColumn(on(SettingType::HighlightMainSelectedCellsColumn));
    model.setRepresentColumnsAsLetters(on(SettingType::RepresentColumnsAsLetters));
    model.setCaseSensitiveSorting(on(SettingType::CaseSensitiveSorting));
    setSnapToRowAfterScrolling(on(SettingType::SnapToRowAfterScrolling));
    setSnapToColumnAfterScrolling(on(SettingType::SnapToColumnAfterScrolling));
    suppressAutoFitWarnings = on(SettingType::SuppressAutoFitWarnings);
    setIfNew(&TableView::setFont, tableFont.family(), settings.getFont().family());
    setIfNew(&TableView::setTextSize, textSize, number(SettingType::TextSize));
    setTheme(settings.getTheme());
    model.setMinNumTableRows(number(SettingType::MinimumNumberOfTableRows));
    model.setMinNumTableCols(number(SettingType::MinimumNumberOfTableColumns));
    model.setNumBufferRows(number(SettingType::NumberOfBufferRows));
    model.setNumBufferCols(number(SettingType::NumberOfBufferColumns));
    model.setSaveAfterEachEdit(on(SettingType::SaveAfterEachEdit));
    model.setSaveWithTrailingDelimiters(on(SettingType::SaveWithTrailingDelimiters));
}

void TableView::applyTableSettings() {
    TableModel& model = *tableModel();
    setMaximumRowHeight(settings.getValueInt(SettingType::MaximumRowHeightForAutoFit), false);
    setMaximumColumnWidth(settings.getValueInt(SettingType::MaximumColumnWidthForAutoFit), false);
    setAutoFitRowHeight(settings.getValueBool(SettingType::AutoFitRowHeight), false);
    setAutoFitColWidth(settings.getValueBool(SettingType::AutoFitColumnWidth), false);
    model.setNumberOfHeaderRows(settings.getValueInt(SettingType::NumberOfHeaderRows));
    model.setNumberOfHeaderCols(settings.getValueInt(SettingType::NumberOfHeaderColumns));
    model.setHighlightHeaderRows(settings.getValueBool(SettingType::HighlightHeaderRows));
    model.setHighlightHeaderColumns(settings.getValueBool(SettingType::HighlightHeaderColumns));
    model.setFirstRowIndex(settings.getValueInt(SettingType::FirstRowIndex));
    model.setFirstColIndex(settings.getValueInt(SettingType::FirstColumnIndex));
}
