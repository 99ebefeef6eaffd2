// What the user has set, put in force in a table.

#include "view/HeaderView.h"
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

void TableView::applyGlobalSettings() {
    TableModel& model = *tableModel();
    auto const on = [this](SettingType type) { return settings.getValueBool(type); };
    auto const number = [this](SettingType type) { return settings.getValueInt(type); };
    setLetEditorPaneConsumeNavigationKeystrokes(on(SettingType::LetEditorPaneConsumeNavigationKeystrokes));
    model.setShadeEveryOtherRow(on(SettingType::ShadeEveryOtherRow));
    model.setShadeEveryOtherColumn(on(SettingType::ShadeEveryOtherColumn));
    model.setHighlightMainCellRow(on(SettingType::HighlightMainSelectedCellsRow));
    model.setHighlightMainCellColumn(on(SettingType::HighlightMainSelectedCellsColumn));
    model.setRepresentColumnsAsLetters(on(SettingType::RepresentColumnsAsLetters));
    model.setCaseSensitiveSorting(on(SettingType::CaseSensitiveSorting));
    setSnapToRowAfterScrolling(on(SettingType::SnapToRowAfterScrolling));
    setSnapToColumnAfterScrolling(on(SettingType::SnapToColumnAfterScrolling));
    model.setFont(settings.getFont());
    model.setTextSize(number(SettingType::TextSize));
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
    model.setNumberOfHeaderRows(settings.getValueInt(SettingType::NumberOfHeaderRows));
    model.setNumberOfHeaderCols(settings.getValueInt(SettingType::NumberOfHeaderColumns));
    model.setHighlightHeaderRows(settings.getValueBool(SettingType::HighlightHeaderRows));
    model.setHighlightHeaderColumns(settings.getValueBool(SettingType::HighlightHeaderColumns));
    model.setFirstRowIndex(settings.getValueInt(SettingType::FirstRowIndex));
    model.setFirstColIndex(settings.getValueInt(SettingType::FirstColumnIndex));
}
