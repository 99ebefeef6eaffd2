// What the active table's file is read and written with.

#include "app/LossyCellsQuestion.h"
#include "app/MainWindow.h"
#include "app/prompts/DialectPrompts.h"
#include "view/TableView.h"

#include <QPointer>

void MainWindow::askHowToReload(std::vector<DialectPart> const& parts) {
    activeTable->stopEditing();
    ask(Prompts::reloadDialect(parts, activeTable,
                               [this, alive = QPointer<TableView>(activeTable)](Dialect const& dialect) {
                                   if (!alive.isNull()) {
                                       reloadTable(alive, dialect);
                                   }
                               }));
}

void MainWindow::askForSaveDialect(std::vector<DialectPart> const& parts) {
    activeTable->stopEditing();
    auto const mayEncode = [this, alive = QPointer<TableView>(activeTable)](EncodingType encoding) {
        return LossyCellsQuestion::mayChange(this, theme, {alive, encoding, false, {}},
                                             [this](TableView* table) { setActiveTable(table); });
    };
    ask(Prompts::saveDialect(parts, activeTable, mayEncode));
}

void MainWindow::commandReloadFile() {
    QPointer<TableView> const table = activeTable;
    table->stopEditing();
    if (table && confirmDiscardUnsavedEditsForReload(table) && table) {
        table->readFileAgain();
    }
}

void MainWindow::commandReloadFileWithDifferentParameters() {
    askHowToReload({DialectPart::Delimiter, DialectPart::Encoding, DialectPart::ParsingStandard});
}

void MainWindow::commandReloadFileWithDelimiter() {
    askHowToReload({DialectPart::Delimiter});
}

void MainWindow::commandReloadFileWithEncoding() {
    askHowToReload({DialectPart::Encoding});
}

void MainWindow::commandReloadFileWithParsingStandard() {
    askHowToReload({DialectPart::ParsingStandard});
}

void MainWindow::commandSetParametersForFileSave() {
    askForSaveDialect(
        {DialectPart::Delimiter, DialectPart::LineEnding, DialectPart::Encoding, DialectPart::ParsingStandard});
}

void MainWindow::commandSetDelimiterForFileSave() {
    askForSaveDialect({DialectPart::Delimiter});
}

void MainWindow::commandSetLineEndingForFileSave() {
    askForSaveDialect({DialectPart::LineEnding});
}

void MainWindow::commandSetEncodingForFileSave() {
    askForSaveDialect({DialectPart::Encoding});
}

void MainWindow::commandSetParsingStandardForFileSave() {
    askForSaveDialect({DialectPart::ParsingStandard});
}

void MainWindow::commandListCharacterEncodings() {
    ask(Prompts::listCharacterEncodings());
}

void MainWindow::reloadTable(TableView* table, Dialect const& dialect) {
    QPointer<TableView> const alive = table;
    if (confirmDiscardUnsavedEditsForReload(table) && alive) {
        table->reloadFile(dialect.delimiter, dialect.encoding, dialect.parsingStandard);
    }
}

bool MainWindow::confirmDiscardUnsavedEditsForReload(TableView* table) {
    if (!table->hasUnsavedChanges()) {
        return true;
    }
    return mayLoseChanges(table,
                          tr("This file has unsaved changes.\n\n"
                             "Would you like to save the file first, discard the changes, or cancel?"),
                          tr("&Discard"));
}
