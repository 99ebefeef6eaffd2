// What the user has set, put in force in a table.

#include "view/TableView.h"

// What is set for tables are defaults for new ones: a table takes them once and keeps its own from then on.
void TableView::propagateSettings(Settings const& newSettings) {
    if (hasSettings) {
        settings.takeGlobalValues(newSettings);
    } else {
        settings = newSettings;
        settings.setValue(SettingType::ReadOnly, readOnly);
    }
    applyGlobalSettings();
    if (!hasSettings) {
        applyTableSettings();
    }
    hasSettings = true;
    refreshHeaders();
    refreshView();
}

// What is the same already stays untouched: a new default size takes back those that the user has pulled, and a new
// font measures all texts.
void TableView::applyGlobalSettings() {
    TableModel& model = *tableModel();
    auto const on = [this](SettingType type) { return settings.getValueBool(type); };
    auto const number = [this](SettingType type) { return settings.getValueInt(type); };
    if (getDefaultRowHeight() != number(SettingType::DefaultRowHeight))
        setDefaultRowHeight(number(SettingType::DefaultRowHeight));
    if (getDefaultColumnWidth() != number(SettingType::DefaultColumnWidth))
        setDefaultColumnWidth(number(SettingType::DefaultColumnWidth));
    setLetEditorPaneConsumeNavigationKeystrokes(on(SettingType::LetEditorPaneConsumeNavigationKeystrokes));
    setShadeEveryOtherRow(on(SettingType::ShadeEveryOtherRow));
    setShadeEveryOtherColumn(on(SettingType::ShadeEveryOtherColumn));
    setHighlightMainCellRow(on(SettingType::HighlightMainSelectedCellsRow));
    setHighlightMainCellColumn(on(SettingType::HighlightMainSelectedCellsColumn));
    setShowRowLabels(on(SettingType::ShowRowLabels));
    setShowColLabels(on(SettingType::ShowColumnLabels));
    setRepresentColumnsAsLetters(on(SettingType::RepresentColumnsAsLetters));
    model.setCaseSensitiveSorting(on(SettingType::CaseSensitiveSorting));
    setSnapToRowAfterScrolling(on(SettingType::SnapToRowAfterScrolling));
    setSnapToColumnAfterScrolling(on(SettingType::SnapToColumnAfterScrolling));
    setSuppressAutoFitWarnings(on(SettingType::SuppressAutoFitWarnings));
    if (model.getFont().family() != settings.getFont().family())
        setFont(settings.getFont());
    if (model.getTextSize() != number(SettingType::TextSize))
        setTextSize(number(SettingType::TextSize));
    setTheme(settings.getTheme());
    model.setMinNumTableRows(number(SettingType::MinimumNumberOfTableRows));
    model.setMinNumTableCols(number(SettingType::MinimumNumberOfTableColumns));
    model.setNumBufferRows(number(SettingType::NumberOfBufferRows));
    model.setNumBufferCols(number(SettingType::NumberOfBufferColumns));
    model.setSaveAfterEachEdit(on(SettingType::SaveAfterEachEdit));
    model.setSaveWithTrailingDelimiters(on(SettingType::SaveWithTrailingDelimiters));
}

void TableView::applyTableSettings() {
    auto const on = [this](SettingType type) { return settings.getValueBool(type); };
    auto const number = [this](SettingType type) { return settings.getValueInt(type); };
    setMaximumRowHeight(number(SettingType::MaximumRowHeightForAutoFit), false);
    setMaximumColumnWidth(number(SettingType::MaximumColumnWidthForAutoFit), false);
    setAutoFitRowHeight(on(SettingType::AutoFitRowHeight), false);
    setAutoFitColWidth(on(SettingType::AutoFitColumnWidth), false);
    setHighlightHeaderRows(on(SettingType::HighlightHeaderRows), false);
    setHighlightHeaderColumns(on(SettingType::HighlightHeaderColumns), false);
    setNumberOfHeaderRows(number(SettingType::NumberOfHeaderRows), false);
    setNumberOfHeaderColumns(number(SettingType::NumberOfHeaderColumns), false);
    setFreezeHeaderRows(on(SettingType::FreezeHeaderRows), false);
    setFreezeHeaderColumns(on(SettingType::FreezeHeaderColumns), false);
    setFirstRowIndex(number(SettingType::FirstRowIndex), false);
    setFirstColIndex(number(SettingType::FirstColumnIndex), false, false);
}
