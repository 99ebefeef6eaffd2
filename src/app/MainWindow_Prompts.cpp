// Commands that ask for the value of a setting, or for a size.

#include "app/MainWindow.h"
#include "app/prompts/SettingPrompts.h"
#include "app/prompts/SizePrompts.h"
#include "app/prompts/TableSetting.h"
#include "view/TableView.h"

#include <QPointer>

void MainWindow::askForSetting(SettingType type) {
    Setting const setting = TableSetting::present(type, settings, *activeTable);
    TableSetting const* const ofTable = TableSetting::find(type);
    if (ofTable == nullptr) {
        ask(Prompts::setting(setting, [this, type](QString const& value) { storeSetting(type, value); }));
        return;
    }
    ask(Prompts::setting(setting, [alive = QPointer<TableView>(activeTable), ofTable](QString const& value) {
        if (!alive.isNull()) {
            ofTable->set(*alive, value.toInt());
        }
    }));
}

void MainWindow::storeSetting(SettingType type, QString const& value) {
    settings.setFromString(settings.get(type).name, value);
    putInForce(type);
}

void MainWindow::commandSetBehaviorWhenFileIsChangedExternally() {
    askForSetting(SettingType::BehaviorWhenFileIsChangedExternally);
}

void MainWindow::commandSetTextEditor() {
    askForSetting(SettingType::TextEditor);
}

void MainWindow::commandSetMinimumFileSizeForReadOnlyModeQueryMB() {
    askForSetting(SettingType::MinimumFileSizeForReadOnlyModeQueryMB);
}

void MainWindow::commandSetUUIDType() {
    askForSetting(SettingType::UUIDType);
}

void MainWindow::commandSetSearchEngine() {
    askForSetting(SettingType::SearchEngine);
}

void MainWindow::commandSetOnlineMap() {
    askForSetting(SettingType::OnlineMap);
}

void MainWindow::commandSetFont() {
    askForSetting(SettingType::Font);
}

void MainWindow::commandSetTextSize() {
    askForSetting(SettingType::TextSize);
}

void MainWindow::commandSetTheme() {
    askForSetting(SettingType::Theme);
}

void MainWindow::commandSetDefaultRowHeight() {
    askForSetting(SettingType::DefaultRowHeight);
}

void MainWindow::commandSetDefaultColumnWidth() {
    askForSetting(SettingType::DefaultColumnWidth);
}

void MainWindow::commandSetMaximumRowHeightForAutoFit() {
    askForSetting(SettingType::MaximumRowHeightForAutoFit);
}

void MainWindow::commandSetMaximumColumnWidthForAutoFit() {
    askForSetting(SettingType::MaximumColumnWidthForAutoFit);
}

void MainWindow::commandSetNumberOfHeaderRows() {
    askForSetting(SettingType::NumberOfHeaderRows);
}

void MainWindow::commandSetNumberOfHeaderColumns() {
    askForSetting(SettingType::NumberOfHeaderColumns);
}

void MainWindow::commandSetFirstRowIndex() {
    askForSetting(SettingType::FirstRowIndex);
}

void MainWindow::commandSetFirstColumnIndex() {
    askForSetting(SettingType::FirstColumnIndex);
}

void MainWindow::commandSetMinimumNumberOfTableRows() {
    askForSetting(SettingType::MinimumNumberOfTableRows);
}

void MainWindow::commandSetMinimumNumberOfTableColumns() {
    askForSetting(SettingType::MinimumNumberOfTableColumns);
}

void MainWindow::commandSetNumberOfBufferRows() {
    askForSetting(SettingType::NumberOfBufferRows);
}

void MainWindow::commandSetNumberOfBufferColumns() {
    askForSetting(SettingType::NumberOfBufferColumns);
}

void MainWindow::commandSetSelectedRowHeights() {
    ask(Prompts::selectedLineSize(Axis::Rows, activeTable));
}

void MainWindow::commandSetSelectedColumnWidths() {
    ask(Prompts::selectedLineSize(Axis::Columns, activeTable));
}
