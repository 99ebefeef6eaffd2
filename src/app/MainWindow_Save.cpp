// Saving.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QFileDialog>

namespace {

QString buildSaveFailureMessage(QString const& path, QString const& reason) {
    QString message = QStringLiteral("File failed to save.");
    if (!path.isEmpty()) {
        message += QStringLiteral("\n\nFile: %1").arg(path);
    }
    if (!reason.isEmpty()) {
        message += QStringLiteral("\nReason: %1").arg(reason);
    }
    return message;
}

} // namespace

bool MainWindow::saveFile(TableView* table) {
    if (table == nullptr || table->isLoading() || table->isReadOnly()) {
        return false;
    }
    table->stopEditing();
    QString const path = table->getFilepath();
    return saveTo(table, path.isEmpty() ? QFileDialog::getSaveFileName(this, tr("Save File As")) : path);
}

bool MainWindow::saveTo(TableView* table, QString const& path) {
    if (path.isEmpty()) {
        return false;
    }
    TableModel& model = *table->tableModel();
    if (!model.saveCSV(path, false, false)) {
        MsgBox::inform(this, theme, buildSaveFailureMessage(path, model.getLastSaveError()));
        return false;
    }
    table->undoStack()->setClean();
    tabBar->renameTable(table);
    if (table == activeTable) {
        setActiveTable(table);
    }
    return true;
}

void MainWindow::commandSaveFile() {
    saveFile(activeTable);
}

void MainWindow::commandSaveFileAs() {
    activeTable->stopEditing();
    saveTo(activeTable, QFileDialog::getSaveFileName(this, tr("Save File As"), activeTable->getFilepath()));
}

void MainWindow::commandSaveAllFiles() {
    for (TableView* table : paneView->getTables()) {
        if (!table->undoStack()->isClean()) {
            saveFile(table);
        }
    }
}
