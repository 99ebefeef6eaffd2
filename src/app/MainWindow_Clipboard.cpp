// Commands that put where the active table's file is on the clipboard. A table without a file leaves it alone.

#include "app/MainWindow.h"
#include "view/TableView.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

namespace {

void copyText(QString const& path, QString const& text) {
    if (!path.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

} // namespace

void MainWindow::commandCopyFilePathToClipboard() {
    QString const path = activeTable->getFilepath();
    copyText(path, QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));
}

void MainWindow::commandCopyFolderPathToClipboard() {
    QString const path = activeTable->getFilepath();
    copyText(path, QDir::toNativeSeparators(QFileInfo(path).absolutePath()));
}

void MainWindow::commandCopyFileNameToClipboard() {
    QString const path = activeTable->getFilepath();
    copyText(path, QFileInfo(path).fileName());
}
