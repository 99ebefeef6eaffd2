// Reading the active table's file again in another dialect.

#include "app/MainWindow.h"
#include "core/DelimiterUtilities.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "view/TableView.h"

#include <QInputDialog>

int MainWindow::askForOption(QString const& title, QStringList const& options, QString const& current) {
    bool accepted = false;
    QString const chosen = QInputDialog::getItem(this, QStringLiteral("Gridwright"), title, options,
                                                 std::max<int>(options.indexOf(current), 0), false, &accepted);
    return accepted ? static_cast<int>(options.indexOf(chosen)) : -1;
}

void MainWindow::commandReloadFileWithDelimiter() {
    TableModel const& model = *activeTable->tableModel();
    QStringList const options = Utilities::getDelimiterOptions(false);
    int const chosen = askForOption(tr("Reload File with Delimiter:"), options,
                                    Utilities::convertDelimiterFromActualToShortReadable(model.getDelimiter()));
    if (chosen >= 0) {
        QString delimiter;
        Utilities::convertDelimiterFromShortReadableToActual(delimiter, options[chosen]);
        reloadActiveFile(delimiter, model.getEncoding(), model.getParsingStandard());
    }
}

void MainWindow::commandReloadFileWithEncoding() {
    TableModel const& model = *activeTable->tableModel();
    QStringList const options = Utilities::getEncodingStringList();
    int const chosen = askForOption(tr("Reload File with Encoding:"), options,
                                    Utilities::convertEncodingTypeToString(model.getEncoding()));
    if (chosen >= 0) {
        EncodingType const named = Utilities::convertEncodingStringToType(options[chosen]);
        reloadActiveFile(model.getDelimiter(), Utilities::guessEncodingFromFile(named, activeTable->getFilepath()),
                         model.getParsingStandard());
    }
}

void MainWindow::commandReloadFileWithParsingStandard() {
    TableModel const& model = *activeTable->tableModel();
    QStringList options;
    for (int standard = 0; standard < static_cast<int>(ParsingStandard::Invalid); ++standard) {
        options.append(Utilities::convertParsingStandardToString(static_cast<ParsingStandard>(standard)));
    }
    int const chosen = askForOption(tr("Reload File with Parsing Standard:"), options,
                                    Utilities::convertParsingStandardToString(model.getParsingStandard()));
    if (chosen >= 0) {
        reloadActiveFile(model.getDelimiter(), model.getEncoding(), static_cast<ParsingStandard>(chosen));
    }
}

void MainWindow::reloadActiveFile(QString const& delimiter, EncodingType encoding, ParsingStandard standard) {
    activeTable->stopEditing();
    if (confirmDiscardUnsavedEditsForReload(activeTable)) {
        activeTable->reloadFile(delimiter, encoding, standard);
        setActiveTable(activeTable);
    }
}

bool MainWindow::confirmDiscardUnsavedEditsForReload(TableView* table) {
    if (table->undoStack()->isClean()) {
        return true;
    }
    return mayLoseChanges(table,
                          tr("This file has unsaved changes.\n\n"
                             "Would you like to save the file first, discard the changes, or cancel?"),
                          tr("&Discard"));
}
