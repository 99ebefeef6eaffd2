// Saving.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "view/MsgBox.h"
#include "view/SaveFailureMessage.h"
#include "view/TableView.h"

#include <QFileDialog>
#include <QPushButton>

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

bool MainWindow::mayLoseChanges(TableView* table, QString const& question, QString const& discardLabel) {
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
    return box.clickedButton() == save ? saveFile(table) : box.clickedButton() == discard;
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
