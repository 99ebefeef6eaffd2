// Saving.

#include "app/MainWindow.h"
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
    QString path = table->getFilepath();
    if (path.isEmpty()) {
        path = QFileDialog::getSaveFileName(this, tr("Save File"));
        if (path.isEmpty()) {
            return false;
        }
    }
    TableModel& model = *table->tableModel();
    if (!model.saveCSV(path, false, false)) {
        MsgBox::inform(this, theme, buildSaveFailureMessage(path, model.getLastSaveError()));
        return false;
    }
    table->undoStack()->setClean();
    updateWindowTitle();
    return true;
}

void MainWindow::commandSaveFile() {
    saveFile(activeTable);
}
