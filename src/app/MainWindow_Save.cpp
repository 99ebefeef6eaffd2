// Saving.

#include "app/DelimiterOnlySave.h"
#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "app/TableWalk.h"
#include "app/WatchedFiles.h"
#include "commands/ExtensionTable.h"
#include "core/EncodingUtilities.h"
#include "core/PathUtilities.h"
#include "model/LineBreakCells.h"
#include "model/LossyCells.h"
#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"
#include "model/undo/SetEncodingCommand.h"
#include "view/FileDialog.h"
#include "view/MsgBox.h"
#include "view/SaveFailureMessage.h"
#include "view/TableView.h"

#include <QFileInfo>
#include <QPushButton>

namespace {

/// The options that a file of this name is saved with. What the row leaves to detection stays as the table has it: the
/// new file has no content yet.
ExtensionData saveOptions(std::vector<ExtensionData> const& rows, QString const& path, TableModel const& model) {
    ExtensionData options = ExtensionTable::find(rows, ExtensionTable::extensionOfFile(path));
    auto const settle = [](QString& delimiter, QString const& present) {
        if (delimiter.isEmpty() || delimiter == QLatin1String("(auto)")) {
            delimiter = present;
        } else if (delimiter == QLatin1String("(none)")) {
            delimiter.clear();
        }
    };
    settle(options.saveDelimiter, model.getSaveDelimiter());
    settle(options.delimiter, options.saveDelimiter);
    options.encoding = Utilities::guessEncodingFromFile(options.encoding, path);
    return options;
}

ExtensionData presentOptions(TableModel const& model) {
    ExtensionData options(model.getExtension(), model.getDelimiter(), model.getSaveDelimiter());
    options.lineEnding = model.getLineEnding();
    options.encoding = model.getEncoding();
    options.parsingStandard = model.getParsingStandard();
    return options;
}

} // namespace

bool MainWindow::saveFile(TableView* table) {
    if (table == nullptr || table->isLoading()) {
        return false;
    }
    QPointer<TableView> const alive = table;
    table->stopEditing(); // may tell of an automatic save that fails
    if (!alive) {
        return false;
    }
    QString const path = table->getFilepath();
    if (table->isReadOnly() && !path.isEmpty()) {
        MsgBox::inform(this, theme,
                       buildSaveFailureMessage(path, tr("The table is read-only. \"Save File As\" saves it to another "
                                                        "file.")));
        return false;
    }
    if (path.isEmpty()) {
        return saveFileAs(table, false);
    }
    if (watchedFiles->holdsBackSave(path)) {
        return false;
    }
    TableModel& model = *table->tableModel();
    if (!Utilities::isPreferenceFilepath(path) &&
        !resolveDelimiterOnlyLineBreakSave({table, {}, presentOptions(model), false})) {
        return false;
    }
    if (settings.getValueBool(SettingType::RemoveExtraneousRowsColumnsOnFileSave)) {
        removeExtraneousRowsAndColumns(table);
    }
    if (!alive) {
        return false;
    }
    bool const saved = model.saveCSV(false, false);
    if (saved) {
        table->undoStack()->setClean();
        onSavedStatusChanged(table, true);
    } else {
        MsgBox::inform(this, theme, buildSaveFailureMessage(path, model.getLastSaveError()));
    }
    if (alive) {
        table->scrollToMainCell(true, true);
    }
    if (alive && alive == activeTable) {
        refreshActiveTable();
    }
    return saved;
}

void MainWindow::removeExtraneousRowsAndColumns(TableView* table) {
    TableModel& model = *table->tableModel();
    TableData const& data = model.getTableData();
    if (data.numEmptyRowsRawAtEnd() > 0 || data.numEmptyColsRawAtEnd() > 0) {
        table->pushUndoCommand(new RemoveEmptyRowsColsAtEndCommand(&model, {}, false));
    }
}

bool MainWindow::resolveDelimiterOnlyLineBreakSave(PendingSave const& save) {
    if (save.dialect.parsingStandard != ParsingStandard::DelimiterOnly) {
        return true;
    }
    int const count = LineBreakCells::count(*save.table->tableModel(), save.visibleOnly);
    if (count > 0) {
        promptDelimiterOnlyLineBreakAction(save, count);
    }
    return count == 0;
}

void MainWindow::promptDelimiterOnlyLineBreakAction(PendingSave const& save, int count) {
    MsgBox box(this);
    box.setTheme(theme);
    box.setTextFormat(Qt::RichText);
    box.setText(DelimiterOnlySave::question(count));
    QPushButton const* const change = box.addButton(tr("Change"), QMessageBox::AcceptRole);
    QPushButton const* const replace = box.addButton(tr("Replace"), QMessageBox::AcceptRole);
    QPushButton const* const remove = box.addButton(tr("Remove"), QMessageBox::AcceptRole);
    box.addButton(tr("Cancel"), QMessageBox::RejectRole);
    box.conditionButtons();
    box.exec();
    if (!save.table) {
        return;
    }
    auto const resume = [this](PendingSave const& pending) { resumePendingDelimiterOnlySave(pending); };
    if (box.clickedButton() == remove) {
        DelimiterOnlySave::applyReplacement(save, QString(), resume);
        return;
    }
    bool const asks = box.clickedButton() == change || box.clickedButton() == replace;
    if (asks && save.table != activeTable) {
        setActiveTable(save.table); // the launcher stands on the active table and goes with it
    }
    if (box.clickedButton() == change) {
        ask(DelimiterOnlySave::askForParsingStandard(save, resume));
    } else if (box.clickedButton() == replace) {
        ask(DelimiterOnlySave::askForReplacement(save, resume));
    }
}

bool MainWindow::resumePendingDelimiterOnlySave(PendingSave const& save) {
    return save.path.isEmpty() ? saveFile(save.table) : finishSaveFileAs(save);
}

QString MainWindow::getFiletypeFilter() const {
    QStringList filters;
    for (ExtensionData const& row : extensions) {
        if (row.extension != QLatin1String("(none)")) {
            filters.append(tr("%1 File (*.%2)").arg(row.extension.toUpper(), row.extension));
        }
    }
    filters.append(tr("All Files (*)"));
    return filters.join(QStringLiteral(";;"));
}

bool MainWindow::saveFileAs(TableView* table, bool visibleOnly) {
    if (table == nullptr || table->isLoading()) {
        return false;
    }
    QPointer<TableView> const alive = table;
    table->stopEditing();
    if (!alive) {
        return false;
    }
    QString const path = FileDialog::fileToSave(this, tr("Save File"), table->getFilepath(), getFiletypeFilter());
    return alive && saveFileUnder(table, path, visibleOnly);
}

bool MainWindow::saveFileUnder(TableView* table, QString const& path, bool visibleOnly) {
    if (path.isEmpty()) {
        return false;
    }
    if (refusesOpenFile(table, path, visibleOnly)) {
        return false;
    }
    PendingSave const save{table, path, saveOptions(extensions, path, *table->tableModel()), visibleOnly};
    return resolveDelimiterOnlyLineBreakSave(save) && finishSaveFileAs(save);
}

// Two tables on one file would undo each other's saves, and their edits would be lost. Only the copy of what is visible
// may go to the file of a table without edits of its own, which is then read again.
bool MainWindow::refusesOpenFile(TableView const* table, QString const& path, bool visibleOnly) {
    if (fileHolder(path) != nullptr) {
        MsgBox::inform(
            this, theme,
            tr("This file is open in another window:\n%1\n\nClose its tab there first, or save under another name.")
                .arg(path));
        return true;
    }
    TableView* const open = paneView->getTableView(path);
    if (open == nullptr || open == table || (visibleOnly && !open->isLoading() && !hasUnsavedEdits(open))) {
        return false;
    }
    MsgBox::inform(
        this, theme,
        tr("This file is open in another tab:\n%1\n\nClose that tab first, or save under another name.").arg(path));
    return true;
}

bool MainWindow::finishSaveFileAs(PendingSave const& save) {
    if (!save.table || !mayLoseCharacters(save) || !save.table ||
        refusesOpenFile(save.table, save.path, save.visibleOnly)) {
        return false; // the table went, or the file was opened, while a question was open
    }
    return save.visibleOnly ? saveCopy(save) : moveTo(save);
}

bool MainWindow::mayLoseCharacters(PendingSave const& save) {
    TableModel& model = *save.table->tableModel();
    CellRegion const cells = LossyCells::find(model, save.dialect.encoding, save.visibleOnly);
    if (cells.isEmpty()) {
        return true;
    }
    MsgBox box(this);
    box.setTheme(theme);
    box.setText(LossyCells::sentence(cells.count(), save.dialect.encoding));
    box.nameFile(save.path);
    QPushButton const* const change = box.addButton(tr("Change &Anyway"), QMessageBox::DestructiveRole);
    QPushButton const* const show = box.addButton(tr("&Show Cells"), QMessageBox::ActionRole);
    QPushButton* const cancel = box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.conditionButtons();
    box.exec();
    if (save.table && box.clickedButton() == show && LossyCells::select(model, cells)) {
        setActiveTable(save.table);
        save.table->scrollToMainCell(true, true);
    }
    return box.clickedButton() == change;
}

bool MainWindow::moveTo(PendingSave const& save) {
    TableView* const table = save.table;
    TableModel& model = *table->tableModel();
    QString const before = table->getFilepath();
    if (!model.saveCSV(save.path, save.dialect, false)) {
        MsgBox::inform(this, theme, buildSaveFailureMessage(save.path, model.getLastSaveError()));
        return false;
    }
    // What is on the undo stack knows the cells in their present encoding.
    if (save.dialect.encoding != model.getEncoding()) {
        table->pushUndoCommand(SetEncodingCommand::afterSave(&model, save.dialect.encoding));
    }
    table->setExtensionData(save.dialect);
    table->undoStack()->setClean();
    if (before != save.path) {
        watchedFiles->remove(before);
    }
    watchedFiles->add(save.path);
    tabBar->renameTable(table);
    onSavedStatusChanged(table, true);
    if (table == activeTable) {
        refreshActiveTable();
    }
    return true;
}

// The table keeps its own file and dialect; only the copy has those of its name.
bool MainWindow::saveCopy(PendingSave const& save) {
    TableView* const table = save.table;
    TableModel& model = *table->tableModel();
    QString const own = table->getFilepath();
    if (!model.saveCSV(save.path, save.dialect, true)) {
        MsgBox::inform(this, theme, buildSaveFailureMessage(save.path, model.getLastSaveError()));
        return false;
    }
    model.getTableData().getDataContainer()->setFilepath(own);
    if (save.path == own) {
        table->undoStack()->resetClean();
        return true;
    }
    bool readOnly = false;
    bool const isOpen = paneView->getTableView(save.path) != nullptr;
    if (!isOpen && !askHowToOpenSavedCopy(save.path, readOnly)) {
        return true;
    }
    TableView* open = paneView->getTableView(save.path);
    if (open != nullptr) {
        reloadChangedFile(open);
    } else {
        open = addTableEditorFromFile(save.path, readOnly, Utilities::isPreferenceFilepath(save.path));
    }
    setActiveTable(open);
    return true;
}

bool MainWindow::askHowToOpenSavedCopy(QString const& path, bool& readOnly) {
    constexpr qint64 mebibyte = 1048576;
    constexpr int buttonHeight = 40;
    qint64 const size = QFileInfo(path).size() / mebibyte;
    if (size < settings.getValueInt(SettingType::MinimumFileSizeForReadOnlyModeQueryMB)) {
        return true;
    }
    MsgBox box(this);
    box.setTheme(theme);
    box.setText(tr("The new file is large (%1 MB).\n").arg(size) + tr("How would you like to open it?"));
    box.nameFile(path);
    QPushButton* const asReadOnly = box.addButton(tr("&Read-Only\nMode"), QMessageBox::AcceptRole);
    QPushButton* const forEditing = box.addButton(tr("&Edit Mode"), QMessageBox::AcceptRole);
    QPushButton* const notAtAll = box.addButton(tr("Do&n't Open"), QMessageBox::RejectRole);
    box.setDefaultButton(asReadOnly);
    box.conditionButtons();
    for (QPushButton* const button : {asReadOnly, forEditing, notAtAll}) {
        MsgBox::enlarge(*button, {0, buttonHeight});
    }
    box.exec();
    readOnly = box.clickedButton() == asReadOnly;
    return readOnly || box.clickedButton() == forEditing;
}

bool MainWindow::mayLoseChanges(TableView* table, QString const& question, QString const& discardLabel) {
    QPointer<TableView> const alive = table;
    MsgBox box(this);
    box.setTheme(theme);
    box.setTextFormat(Qt::PlainText);
    box.setText(question);
    QPushButton* const save = box.addButton(tr("&Save"), QMessageBox::AcceptRole);
    QPushButton const* const discard = box.addButton(discardLabel, QMessageBox::DestructiveRole);
    box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.conditionButtons();
    box.exec();
    if (box.clickedButton() != save) {
        return box.clickedButton() == discard;
    }
    return !alive || saveFile(alive);
}

void MainWindow::commandSaveFile() {
    saveFile(activeTable);
}

void MainWindow::commandSaveFileAs() {
    saveFileAs(activeTable, false);
}

void MainWindow::commandSaveVisibleDataAs() {
    saveFileAs(activeTable, true);
}

void MainWindow::commandSaveAllFiles() {
    activeTable->stopEditing();
    TableWalk walk(*paneView);
    while (TableView* const table = walk.next()) {
        if (table->isReadOnly() && !table->hasUnsavedChanges()) {
            continue;
        }
        saveFile(table);
    }
}
