// Saving: what SaveFlow needs of the window, and the commands.

#include "app/MainWindow.h"
#include "app/NoticeLine.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "app/TableWalk.h"
#include "app/WatchedFiles.h"
#include "app/files/SaveFlow.h"
#include "core/PathUtilities.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QPushButton>

bool MainWindow::saveFile(TableView* table) {
    return saves->saveFile(table);
}

bool MainWindow::saveFileAs(TableView* table, bool visibleOnly) {
    return saves->saveFileAs(table, visibleOnly);
}

bool MainWindow::saveFileUnder(TableView* table, QString const& path, bool visibleOnly) {
    return saves->saveFileUnder(table, path, visibleOnly);
}

TableView* MainWindow::tableOfFile(QString const& path) const {
    return paneView->getTableView(path);
}

bool MainWindow::isOpenInOtherWindow(QString const& path) const {
    return fileHolder(path) != nullptr;
}

TableView* MainWindow::openSavedCopy(QString const& path, bool readOnly) {
    return addTableEditorFromFile(path, readOnly, Utilities::isPreferenceFilepath(path));
}

void MainWindow::readSavedCopy(TableView* table) {
    reloadChangedFile(table);
}

void MainWindow::onTableSaved(TableView* table, QString const& before) {
    QString const path = table->getFilepath();
    if (before != path) {
        watchedFiles->remove(before);
        watchedFiles->add(path);
        tabBar->renameTable(table);
    }
    onSavedStatusChanged(table, true);
}

void MainWindow::tellNotKept(QStringList const& sentences) {
    saveRemarks->tell(tr("The file was saved.") + QLatin1Char(' ') + sentences.join(QLatin1Char(' ')), {});
}

void MainWindow::refreshTable(TableView* table) {
    if (table == activeTable) {
        refreshActiveTable();
    }
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
